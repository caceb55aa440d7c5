#include "LayoutText.h"

#include <QString>

namespace
{
// Layouts of the largest consoles stay far below either. A text of this length costs the parser up to 90 MB.
constexpr int MaximumLength = 1024 * 1024;
constexpr int MaximumDepth = 200;

QLatin1String const CommentOpening("<!--");
QLatin1String const CharactersOpening("<![CDATA[");
QLatin1String const InstructionOpening("<?");
QLatin1String const DocumentTypeOpening("<!DOCTYPE");
constexpr int LongestOpening = 9;

// The place behind the next end, or the end of the text.
int SkipPast(QString const& text, QLatin1String end, int from)
{
    int const found = text.indexOf(end, from);
    return found < 0 ? text.size() : found + end.size();
}

// The place behind a document type that is a name and nothing else, or -1: what may stand in one declares
// entities, or hides what follows from a scan as quick as this.
int SkipDocumentType(QString const& text, int from)
{
    for (int i = from; i < text.size(); ++i)
    {
        if (text[i] == QLatin1Char('>'))
            return i + 1;
        if (!text[i].isLetterOrNumber() && !text[i].isSpace())
            return -1;
    }
    return text.size();
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
    while (at >= 0 && depth >= 0 && depth <= MaximumDepth)
    {
        at = text.indexOf(QLatin1Char('<'), at);
        if (at < 0)
            return true;
        QStringView const rest = QStringView(text).mid(at, LongestOpening);
        bool closesItself = false;
        if (rest.startsWith(CommentOpening))
            at = SkipPast(text, QLatin1String("-->"), at + CommentOpening.size());
        else if (rest.startsWith(CharactersOpening))
            at = SkipPast(text, QLatin1String("]]>"), at + CharactersOpening.size());
        else if (rest.startsWith(InstructionOpening))
            at = SkipPast(text, QLatin1String("?>"), at + InstructionOpening.size());
        else if (rest.startsWith(DocumentTypeOpening))
            at = SkipDocumentType(text, at + DocumentTypeOpening.size());
        else if (rest.startsWith(QLatin1String("<!")))
            return false;
        else if (rest.startsWith(QLatin1String("</")))
            at = SkipTag(text, at + 2, closesItself), --depth;
        else
            at = SkipTag(text, at + 1, closesItself), depth += closesItself ? 0 : 1;
    }
    return false;
}
