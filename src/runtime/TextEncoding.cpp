#include "runtime/TextEncoding.h"

#include <QStringDecoder>

namespace obelmark {

using namespace Qt::StringLiterals;

QByteArray inFileEncoding(QStringView text)
{
    return text.toUtf8();
}

QByteArray toFileText(const QString &text)
{
    return inFileEncoding(withCrLf(text));
}

QString fromFileText(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return withLf(decoder.hasError() ? QString::fromLatin1(bytes) : text);
}

QString withCrLf(const QString &text)
{
    return withLf(text).replace(u'\n', "\r\n"_L1);
}

QString withLf(const QString &text)
{
    return QString(text).replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
}

} // namespace obelmark
