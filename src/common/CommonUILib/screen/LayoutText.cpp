#include "LayoutText.h"

#include <QString>

namespace
{
// Layouts of the largest consoles stay below a tenth of either.
constexpr int MaximumLength = 4 * 1024 * 1024;
constexpr int MaximumDepth = 200;

// The end of what begins at from, or the end of the text.
int SkipPast(QString const& text, QLatin1String end, int from)
{
    int const found = text.indexOf(end, from);
    return found < 0 ? text.size() : found + end.size();
}

// The place behind the tag that begins at from; quoted attribute values may hold any sign.
int SkipTag(QString const& text, int from, bool& closesItself)
{
    QChar quote;
    for (int i = from; i < text.size(); ++i)
    {
        QChar const sign = text[i];
        if (!quote.isNull())
        {
            if (sign == quote)
                quote = QChar();
        }
        else if (sign == QLatin1Char('"') || sign == QLatin1Char('\''))
        {
            quote = sign;
        }
        else if (sign == QLatin1Char('>'))
        {
            closesItself = text[i - 1] == QLatin1Char('/');
            return i + 1;
        }
    }
    return text.size();
}
} // namespace

bool IsSaneLayoutText(QString const& text)
{
    if (text.size() > MaximumLength)
        return false;
    int depth = 0;
    int at = 0;
    while ((at = text.indexOf(QLatin1Char('<'), at)) >= 0)
    {
        QStringView const rest = QStringView(text).mid(at, 9);
        bool closesItself = false;
        if (rest.startsWith(QLatin1String("<!--")))
            at = SkipPast(text, QLatin1String("-->"), at);
        else if (rest.startsWith(QLatin1String("<![CDATA[")))
            at = SkipPast(text, QLatin1String("]]>"), at);
        else if (rest.startsWith(QLatin1String("<!ENTITY")))
            return false;
        else if (rest.startsWith(QLatin1String("<?")))
            at = SkipPast(text, QLatin1String("?>"), at);
        else if (rest.startsWith(QLatin1String("<!")))
            at += 2; // a document type; a declaration inside it begins with a sign of its own
        else if (rest.startsWith(QLatin1String("</")))
            at = SkipTag(text, at + 2, closesItself), --depth;
        else
        {
            at = SkipTag(text, at + 1, closesItself);
            depth += closesItself ? 0 : 1;
            if (depth > MaximumDepth)
                return false;
        }
    }
    return true;
}
