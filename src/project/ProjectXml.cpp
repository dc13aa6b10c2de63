#include "project/ProjectXml.h"

#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <QSet>

#include <cmath>
#include <iterator>
#include <limits>

namespace selvora {
namespace project {

using document::Media;
using document::Scene;
using document::Sync;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

// The enumerations that travel as words, with their two conversions.
enum class Word { none, hover, shape, outlineWidth, outlineStyle, textType, textAlign };

struct WordConversion {
    QString (*legend)(int);
    int (*value)(const QString&);
};

const WordConversion kWords[] = {
    {nullptr, nullptr},
    {&Definitions::getkHoverTypeLegend,
     [](const QString& w) { return int(Definitions::getkHoverType(w)); }},
    {&Definitions::getkShapeTypeLegend,
     [](const QString& w) { return int(Definitions::getkShapeType(w)); }},
    {&Definitions::getkOutlineWidthLegend,
     [](const QString& w) { return int(Definitions::getkOutlineWidth(w)); }},
    {&Definitions::getkOutlineStyleLegend,
     [](const QString& w) { return int(Definitions::getkOutlineStyle(w)); }},
    {&Definitions::getkTextTypeLegend,
     [](const QString& w) { return int(Definitions::getkTextType(w)); }},
    {&Definitions::getkTextAlignLegend,
     [](const QString& w) { return int(Definitions::getkTextAlign(w)); }},
};

const WordConversion& conversion(Word word) {
    return kWords[static_cast<int>(word)];
}

constexpr unsigned bit(MediaType type) {
    return 1u << static_cast<unsigned>(type);
}
constexpr unsigned kAllTypes = 0x1f;
constexpr unsigned kTextual = bit(MediaType::text) | bit(MediaType::shape);
constexpr unsigned kShape = bit(MediaType::shape);

// The look attributes of a media element, in the order they are written. Reading takes every
// row whatever the tag, so that a hand-edited file loses nothing it holds.
struct MediaAttribute {
    const char* name;
    QString (Media::*getter)() const;
    Word word;
    unsigned types;
};

const MediaAttribute kHoverAttribute = {"hover", &Media::getHover, Word::hover, kAllTypes};

const MediaAttribute kLookAttributes[] = {
    {"geometry", &Media::getGeometry, Word::shape, kShape},
    {"colorFill", &Media::getColorFill, Word::none, kShape},
    {"colorOutline", &Media::getColorOutline, Word::none, kShape},
    {"widthOutline", &Media::getWidthOutline, Word::outlineWidth, kShape},
    {"styleOutline", &Media::getStyleOutline, Word::outlineStyle, kShape},
    {"wording", &Media::getWording, Word::none, kTextual},
    {"colorFont", &Media::getColorFont, Word::none, kTextual},
    {"fontFamily", &Media::getFontFamily, Word::none, kTextual},
    {"fontType", &Media::getFontType, Word::textType, kTextual},
    {"fontSize", &Media::getFontSize, Word::none, kTextual},
    {"textAlignment", &Media::getTextAlignment, Word::textAlign, kTextual},
};

QString toWord(Word word, const QString& number) {
    if (word == Word::none)
        return number;
    return conversion(word).legend(number.toInt());
}

QString fromWord(Word word, const QString& text) {
    if (word == Word::none || text.isEmpty())
        return text;
    return QString::number(conversion(word).value(text));
}

// Reads one look attribute through the given lookup of attribute values by name.
template <typename Lookup>
void readAttribute(const Lookup& lookup, const MediaAttribute& attribute,
                   QHash<QString, QString>& properties) {
    const QString name = QLatin1String(attribute.name);
    QString value = lookup(name);
    // A NUL cannot be held by the canvas's text: the wording ends at the first one.
    if (attribute.getter == &Media::getWording)
        value = QString::fromUtf8(value.toUtf8().constData());
    properties.insert(name, fromWord(attribute.word, value));
}

template <typename Lookup>
ProjectXml::MediaRecord readMediaWith(const QString& tag, Lookup lookup) {
    ProjectXml::MediaRecord record;
    record.type = Definitions::getkMediaType(tag);
    record.id = ProjectXml::readId(lookup(QStringLiteral("id")), QStringLiteral("media_"));
    record.src = lookup(QStringLiteral("src"));
    record.label = lookup(QStringLiteral("label"));
    record.properties.reserve(12);
    readAttribute(lookup, kHoverAttribute, record.properties);
    for (const MediaAttribute& attribute : kLookAttributes)
        readAttribute(lookup, attribute, record.properties);
    return record;
}

ProjectXml::ActionRecord actionWith(const QString& tag, const QString& target) {
    ProjectXml::ActionRecord record;
    record.type = Definitions::getkSyncType(tag);
    record.target = target.isEmpty() ? -1 : ProjectXml::readInt(target);
    return record;
}

bool isXmlChar(uint code) {
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
           (code >= 0xE000 && code <= 0xFFFD);
}

const QString kKey = QStringLiteral("key");

} // namespace

QDomElement ProjectXml::appendMedia(QDomDocument& doc, QDomElement& parent, const Media* media,
                                    const QString& src, bool withHover) {
    const MediaType type = media->getType();
    QDomElement element = doc.createElement(Definitions::getkMediaTypeLegend(int(type)));
    element.setAttribute(QStringLiteral("id"), QString::number(media->getId()));
    element.setAttribute(QStringLiteral("label"), media->getLabel());
    if (withHover) {
        const QString hover = media->getHover();
        element.setAttribute(QStringLiteral("hover"),
                             hover.isEmpty() ? QString("") : toWord(Word::hover, hover));
    }
    element.setAttribute(QStringLiteral("src"), src);
    for (const MediaAttribute& attribute : kLookAttributes) {
        if (attribute.types & bit(type))
            element.setAttribute(QLatin1String(attribute.name),
                                 toWord(attribute.word, (media->*attribute.getter)()));
    }
    parent.appendChild(element);
    return element;
}

ProjectXml::MediaRecord ProjectXml::readMedia(const QDomElement& element) {
    return readMediaWith(element.tagName(),
                         [&element](const QString& name) { return element.attribute(name); });
}

ProjectXml::MediaRecord ProjectXml::readMedia(const QString& tag,
                                              const QXmlStreamAttributes& attributes) {
    return readMediaWith(tag, [&attributes](const QString& name) {
        return ProjectXml::attribute(attributes, name);
    });
}

void ProjectXml::appendSyncGroups(QDomDocument& doc, QDomElement& sceneElement, const Scene* scene,
                                  const QList<Sync*>& openers, bool mediaOnly, int& counter) {
    QSet<int> grouped;
    for (const Sync* opener : openers) {
        if (mediaOnly && !opener->getIsMedia())
            continue;
        const int time = opener->getTime();
        if (grouped.contains(time))
            continue;
        grouped.insert(time);
        QDomElement group = doc.createElement(QStringLiteral("sync"));
        group.setAttribute(QStringLiteral("time"), QString::number(time));
        group.setAttribute(QStringLiteral("id"), QString::number(opener->getId()));
        const QList<Sync*> atTime = scene->getAllSyncs(time);
        for (const Sync* sync : atTime)
            appendAction(doc, group, sync, counter);
        sceneElement.appendChild(group);
    }
}

bool ProjectXml::appendAction(QDomDocument& doc, QDomElement& group, const Sync* sync,
                              int& counter) {
    const SyncType type = sync->getType();
    const bool isLink = type == SyncType::goTo || type == SyncType::select;
    if (isLink && sync->getLink().isEmpty() && sync->getUrl().isEmpty())
        return false;
    QDomElement action = doc.createElement(Definitions::getkSyncTypeLegend(int(type)));
    action.setAttribute(QStringLiteral("id"), QString::number(counter));
    if (type != SyncType::goTo)
        action.setAttribute(QStringLiteral("target"), QString::number(sync->getMediaTarget()));
    if (type != SyncType::stop) {
        const QHash<QString, QString> properties = sync->getProperties();
        for (auto it = properties.constBegin(); it != properties.constEnd(); ++it) {
            if (it.value().isEmpty())
                continue;
            QDomElement property = doc.createElement(QStringLiteral("property"));
            property.setAttribute(QStringLiteral("name"), it.key());
            property.setAttribute(QStringLiteral("value"),
                                  it.key() == kKey
                                      ? Definitions::getkButtonTypeLegend(it.value().toInt())
                                      : it.value());
            action.appendChild(property);
        }
    }
    group.appendChild(action);
    ++counter;
    return true;
}

ProjectXml::ActionRecord ProjectXml::readAction(const QDomElement& element) {
    ActionRecord record =
        actionWith(element.tagName(), element.attribute(QStringLiteral("target")));
    for (QDomElement property = element.firstChildElement(QStringLiteral("property"));
         !property.isNull(); property = property.nextSiblingElement(QStringLiteral("property")))
        readProperty(record, property.attribute(QStringLiteral("name")),
                     property.attribute(QStringLiteral("value")));
    return record;
}

ProjectXml::ActionRecord ProjectXml::readAction(const QString& tag,
                                                const QXmlStreamAttributes& attributes) {
    return actionWith(tag, attribute(attributes, QStringLiteral("target")));
}

void ProjectXml::readProperty(ActionRecord& record, const QString& name, const QString& value) {
    record.properties.insert(
        name, name == kKey ? QString::number(int(Definitions::getkButtonType(value))) : value);
}

QString ProjectXml::attribute(const QXmlStreamAttributes& attributes, const QString& name) {
    return xmlText(attributes.value(name).toString());
}

QString ProjectXml::xmlText(const QString& text) {
    QString result = text; // shared with the text until a character is replaced
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else if (!isXmlChar(c.unicode()))
            result[i] = QChar(QChar::ReplacementCharacter);
    }
    return result;
}

int ProjectXml::readId(const QString& value, const QString& oldPrefix) {
    if (value.contains(oldPrefix))
        return readInt(value.split(QLatin1Char('_')).value(1));
    return readInt(value);
}

int ProjectXml::readInt(const QString& value) {
    // Ids are lifted past and times advanced by one: keep a margin below the int limits.
    constexpr int kLimit = 1000000000;
    const int number = value.toInt();
    return qBound(-kLimit, number, kLimit);
}

QString ProjectXml::rescaleFontSize(const QString& value, int viewHeight, int savedViewHeight) {
    bool ok = false;
    const double size = value.toDouble(&ok);
    if (!ok || size == 0 || std::isnan(size))
        return QString("");
    // Saved at this view height: the size stands as it is, so that a save and a load in turn
    // never move it (the product alone could overflow where the size does not).
    if (viewHeight == savedViewHeight)
        return QString::number(size, 'g', 4);
    const double scaled = size * viewHeight;
    // A file without a saved view height divides by zero; the result is an infinity.
    double result = std::numeric_limits<double>::quiet_NaN();
    if (savedViewHeight != 0)
        result = scaled / savedViewHeight;
    else if (scaled != 0)
        result = std::copysign(std::numeric_limits<double>::infinity(), scaled);
    return QString::number(result, 'g', 4);
}

const QStringList& ProjectXml::syncKeys() {
    static const QStringList keys = {"left",         "top",  "width",     "height", "layer",
                                     "transparency", "link", "timeEvent", "key",    "url"};
    return keys;
}

} // namespace project
} // namespace selvora
