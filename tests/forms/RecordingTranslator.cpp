#include "RecordingTranslator.h"

RecordingTranslator::RecordingTranslator(QObject* parent)
    : QTranslator(parent)
{
}

QString RecordingTranslator::marked(const QString& source)
{
    return QStringLiteral("<%1>").arg(source);
}

void RecordingTranslator::setHook(Hook hook)
{
    m_hook = std::move(hook);
}

QVector<RecordingTranslator::Lookup> RecordingTranslator::lookups(const QString& context) const
{
    QVector<Lookup> result;
    for (const Lookup& l : m_lookups) {
        if (l.context == context)
            result.append(l);
    }
    return result;
}

QString RecordingTranslator::translate(const char* context, const char* sourceText,
                                       const char* disambiguation, int n) const
{
    const Lookup lookup{QString::fromUtf8(context), QString::fromUtf8(sourceText),
                        disambiguation != nullptr, n};
    m_lookups.append(lookup);
    if (m_hook)
        m_hook(lookup);
    return marked(lookup.source);
}

bool RecordingTranslator::isEmpty() const
{
    return false;
}
