#ifndef HOSTEVENTS_H
#define HOSTEVENTS_H

// Custom event the host posts to every view when the wallpaper changes
// (AppData::wallPaperPath() holds the new path).
extern const int WallPaperChange;

#endif
