#include "project/ProjectScan.h"

namespace selvora {
namespace project {

namespace {

using Verdict = ProjectScan::Verdict;

// Skips a construct that ends with the given closing text; -1 when it never ends.
int skipTo(const QString& text, int from, QLatin1String closing) {
    const int end = text.indexOf(closing, from);
    return end < 0 ? -1 : end + closing.size();
}

// Walks a tag from just after its "<" to just after its ">", skipping quoted values. Counts the
// attributes by their "=" signs, which stand only outside quotes. A "<" inside a tag is never XML.
struct Tag {
    int end = -1;
    int attributes = 0;
    bool empty = false;    // ends with "/>"
    bool internal = false; // holds a "[": a document type with declarations of its own
};

Tag walkTag(const QString& text, int from) {
    Tag tag;
    QChar quote;
    const int size = text.size();
    for (int i = from; i < size; ++i) {
        const QChar c = text.at(i);
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
            else if (c == QLatin1Char('<'))
                return tag;
            continue;
        }
        switch (c.unicode()) {
        case '"':
        case '\'':
            quote = c;
            break;
        case '=':
            ++tag.attributes;
            break;
        case '[':
            tag.internal = true;
            break;
        case '<':
            return tag;
        case '>':
            tag.end = i + 1;
            tag.empty = i > from && text.at(i - 1) == QLatin1Char('/');
            return tag;
        default:
            break;
        }
    }
    return tag;
}

} // namespace

ProjectScan::Verdict ProjectScan::scan(const QString& text) {
    int depth = 0;
    int elements = 0;
    int pos = 0;
    while ((pos = text.indexOf(QLatin1Char('<'), pos)) >= 0) {
        const QStringRef rest = text.midRef(pos);
        if (rest.startsWith(QLatin1String("<!--"))) {
            pos = skipTo(text, pos + 4, QLatin1String("-->"));
        } else if (rest.startsWith(QLatin1String("<![CDATA["))) {
            pos = skipTo(text, pos + 9, QLatin1String("]]>"));
        } else if (rest.startsWith(QLatin1String("<?"))) {
            pos = skipTo(text, pos + 2, QLatin1String("?>"));
        } else {
            const bool declaration = rest.startsWith(QLatin1String("<!"));
            const bool closing = rest.startsWith(QLatin1String("</"));
            const Tag tag = walkTag(text, pos + 1);
            // The file's document type names the root and nothing else: no entities, no
            // defaults for attributes, nothing to expand.
            if (tag.end < 0 || (declaration && tag.internal))
                return Verdict::refused;
            if (closing) {
                if (--depth < 0)
                    return Verdict::refused;
            } else if (!declaration) {
                if (++elements > kMaxElements)
                    return Verdict::tooLarge;
                if (tag.attributes > kMaxAttributes)
                    return Verdict::refused;
                if (!tag.empty && ++depth > kMaxDepth)
                    return Verdict::refused;
            }
            pos = tag.end;
        }
        if (pos < 0)
            return Verdict::refused;
    }
    return Verdict::fine;
}

} // namespace project
} // namespace selvora
