#ifndef RECORDINGTRANSLATOR_H
#define RECORDINGTRANSLATOR_H

#include <QString>
#include <QTranslator>
#include <QVector>

#include <functional>

// Translator that answers every lookup with a marked text and remembers
// each lookup, so a test can see exactly which texts a layout routes
// through translation, with which context, and what the widgets held
// before the first lookup.
class RecordingTranslator : public QTranslator
{
public:
    struct Lookup
    {
        QString context;
        QString source;
        bool hasDisambiguation;
        int n;
    };
    using Hook = std::function<void(const Lookup&)>;

    explicit RecordingTranslator(QObject* parent = nullptr);

    // The text returned for a source text.
    static QString marked(const QString& source);

    // Called on every lookup, before the translation is returned.
    void setHook(Hook hook);
    QVector<Lookup> lookups(const QString& context) const;

    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;
    bool isEmpty() const override;

private:
    mutable QVector<Lookup> m_lookups;
    Hook m_hook;
};

#endif
