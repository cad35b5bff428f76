#ifndef RADIO_ARTWORK_ARTWORKWRITER_H
#define RADIO_ARTWORK_ARTWORKWRITER_H

#include "ArtworkCatalog.h"

#include <QImage>
#include <QString>

// Renders catalogue entries and writes them below an output root.
class ArtworkWriter
{
public:
    explicit ArtworkWriter(const QString& root);

    // The entry painted on a transparent canvas of its exact size.
    static QImage render(const ArtworkCatalog::Entry& entry);

    // Renders and saves one entry, creating its folder; logs and returns
    // false when the folder or the file cannot be written.
    bool write(const ArtworkCatalog::Entry& entry) const;

private:
    QString m_root;
};

#endif
