#ifndef LANGUAGESWITCH_H
#define LANGUAGESWITCH_H

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QLocale;
class QTranslator;

// The head unit's display language. A language other than English has two
// catalogues, the radio screen's (radio_<code>.qm) and the shell's own
// (headunit_<code>.qm). Switching installs the new ones on the application
// and removes the old ones; the application then sends QEvent::LanguageChange
// to every widget, and the screens translate themselves again.
class LanguageSwitch : public QObject
{
    Q_OBJECT
public:
    // "en" first: the language of the sources, which needs no catalogue.
    static QStringList languages();
    // The language's own name ("Deutsch"), for a person choosing it.
    static QString nativeName(const QString& code);
    // The first of the locale's UI languages that the head unit offers,
    // else "en".
    static QString languageFor(const QLocale& locale);
    // <executable's folder>/translations: where the build puts the catalogues.
    static QString defaultCatalogueDir();

    explicit LanguageSwitch(const QString& catalogueDir = defaultCatalogueDir(), QObject* parent = nullptr);
    ~LanguageSwitch() override;

    QString language() const { return m_language; }

    // Installs the catalogues of code, then removes the previous ones.
    // False for an unknown code or a catalogue that does not load (logged);
    // the language then stays as it was. Setting the current one again
    // changes nothing.
    bool setLanguage(const QString& code);

signals:
    void languageChanged(const QString& code);

private:
    void removeInstalled();

    QString m_dir;
    QString m_language;
    std::vector<std::unique_ptr<QTranslator>> m_installed;
};

#endif
