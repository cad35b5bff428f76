#include "LanguageSwitch.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QLoggingCategory>
#include <QTranslator>

Q_LOGGING_CATEGORY(lcLanguage, "hu.shell.language")

namespace {

const char* const SourceLanguage = "en";
// The catalogues one language needs, by base name.
const char* const Catalogues[] = {"radio", "headunit"};

// The languages offered, the source language first, with their own names.
struct Language
{
    const char* code;
    const char* nativeName;
};
const Language Offered[] = {{SourceLanguage, "English"}, {"de", "Deutsch"}, {"fr", "Français"}, {"cs", "Čeština"}};

} // namespace

QStringList LanguageSwitch::languages()
{
    QStringList codes;
    for (const Language& language : Offered)
        codes << QLatin1String(language.code);
    return codes;
}

QString LanguageSwitch::nativeName(const QString& code)
{
    for (const Language& language : Offered) {
        if (code == QLatin1String(language.code))
            return QString::fromUtf8(language.nativeName);
    }
    return QString::fromUtf8(Offered[0].nativeName);
}

QString LanguageSwitch::languageFor(const QLocale& locale)
{
    const QStringList offered = languages();
    for (const QString& name : locale.uiLanguages()) {
        const QString code = name.section(QLatin1Char('-'), 0, 0).toLower();
        if (offered.contains(code))
            return code;
    }
    return QLatin1String(SourceLanguage);
}

QString LanguageSwitch::defaultCatalogueDir()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("translations"));
}

LanguageSwitch::LanguageSwitch(const QString& catalogueDir, QObject* parent)
    : QObject(parent), m_dir(catalogueDir), m_language(QLatin1String(SourceLanguage))
{
}

LanguageSwitch::~LanguageSwitch()
{
    removeInstalled();
}

bool LanguageSwitch::setLanguage(const QString& code)
{
    if (!languages().contains(code)) {
        qCWarning(lcLanguage).noquote() << QStringLiteral("unknown language \"%1\"; the head unit offers %2")
                                               .arg(code, languages().join(QLatin1String(", ")));
        return false;
    }
    if (code == m_language)
        return true;

    // Everything is loaded before anything changes: a missing catalogue
    // leaves the screens in the language they have.
    std::vector<std::unique_ptr<QTranslator>> loaded;
    if (code != QLatin1String(SourceLanguage)) {
        for (const char* base : Catalogues) {
            auto translator = std::make_unique<QTranslator>();
            const QString file = QStringLiteral("%1_%2").arg(QLatin1String(base), code);
            if (!translator->load(file, m_dir)) {
                qCWarning(lcLanguage).noquote()
                    << QStringLiteral("cannot load the catalogue %1.qm from %2").arg(file, QDir::toNativeSeparators(m_dir));
                return false;
            }
            loaded.push_back(std::move(translator));
        }
    }
    // The new catalogues go in first, so no text falls back to English
    // in between; the application posts one LanguageChange per window.
    for (const auto& translator : loaded)
        QCoreApplication::installTranslator(translator.get());
    removeInstalled();
    m_installed = std::move(loaded);
    m_language = code;
    emit languageChanged(code);
    return true;
}

void LanguageSwitch::removeInstalled()
{
    for (const auto& translator : m_installed)
        QCoreApplication::removeTranslator(translator.get());
    m_installed.clear();
}
