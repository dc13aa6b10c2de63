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

void readAttribute(const QDomElement& element, const MediaAttribute& attribute,
                   QHash<QString, QString>& properties) {
    const QString name = QLatin1String(attribute.name);
    QString value = element.attribute(name);
    // A NUL cannot be held by the canvas's text: the wording ends at the first one.
    if (attribute.getter == &Media::getWording)
        value = QString::fromUtf8(value.toUtf8().constData());
    properties.insert(name, fromWord(attribute.word, value));
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
    MediaRecord record;
    record.type = Definitions::getkMediaType(element.tagName());
    record.id = readId(element.attribute(QStringLiteral("id")), QStringLiteral("media_"));
    record.src = element.attribute(QStringLiteral("src"));
    record.label = element.attribute(QStringLiteral("label"));
    record.properties.reserve(12);
    readAttribute(element, kHoverAttribute, record.properties);
    for (const MediaAttribute& attribute : kLookAttributes)
        readAttribute(element, attribute, record.properties);
    return record;
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
    ActionRecord record;
    record.type = Definitions::getkSyncType(element.tagName());
    const QString target = element.attribute(QStringLiteral("target"));
    record.target = target.isEmpty() ? -1 : readInt(target);
    for (QDomElement property = element.firstChildElement(QStringLiteral("property"));
         !property.isNull(); property = property.nextSiblingElement(QStringLiteral("property"))) {
        const QString name = property.attribute(QStringLiteral("name"));
        QString value = property.attribute(QStringLiteral("value"));
        if (name == kKey)
            value = QString::number(int(Definitions::getkButtonType(value)));
        record.properties.insert(name, value);
    }
    return record;
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
