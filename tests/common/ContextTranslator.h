#pragma once
// Shows every translated text as "context|source", so a test sees which
// texts go through translation and under which context.
#include <QString>
#include <QTranslator>

class ContextTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QString::fromLatin1(context) + QLatin1Char('|') + QString::fromUtf8(text);
    }
    bool isEmpty() const override { return false; }
};
