#ifndef RADIO_ARTWORK_ARTWORKCATALOG_H
#define RADIO_ARTWORK_ARTWORKCATALOG_H

#include <QSize>
#include <QString>
#include <QVector>

#include <functional>

class QPainter;

// Every image the radio screen loads: where it goes below the output root,
// its exact pixel size and how it is painted.
namespace ArtworkCatalog {

struct Entry {
    QString file;   // relative to the output root
    QSize size;
    std::function<void(QPainter&, const QSize&)> paint;
    const char* format = "PNG";
    // QImageWriter quality; for PNG 0 is the strongest deflate, 100 none.
    int quality = 0;
};

QVector<Entry> entries();

} // namespace ArtworkCatalog

#endif
