#ifndef SELVORA_PROJECT_PROJECTXML_H
#define SELVORA_PROJECT_PROJECTXML_H

#include "app/Definitions.h"

#include <QDomDocument>
#include <QDomElement>
#include <QHash>
#include <QList>
#include <QString>
#include <QXmlStreamAttributes>

namespace selvora {
namespace document {
class Media;
class Scene;
class Sync;
} // namespace document

namespace project {

// The XML forms of a medium and of a group of syncs, shared by the project file and the history
// records: enumerations travel as words, numbers stay in memory. Plain functions, no state.
class ProjectXml {
public:
    // A media element read back: the twelve look keys always present, words already numbers.
    struct MediaRecord {
        Definitions::kMediaType type = Definitions::kMediaType::text;
        int id = 0;
        QString src;
        QString label;
        QHash<QString, QString> properties;
    };

    // An action element read back (start, set, stop, select, goto).
    struct ActionRecord {
        Definitions::kSyncType type = Definitions::kSyncType::set;
        int target = -1;
        QHash<QString, QString> properties;
    };

    // Appends the element of a medium to parent: tag by type, only the attributes of its type,
    // enumerations as words, `src` as given, `hover` only when withHover.
    static QDomElement appendMedia(QDomDocument& doc, QDomElement& parent,
                                   const document::Media* media, const QString& src,
                                   bool withHover = true);

    // Reads a media element of any tag (unknown tags are text); ids "media_N" and "N" alike;
    // absent or empty attributes give empty values; fontSize is returned as it stands.
    static MediaRecord readMedia(const QDomElement& element);
    static MediaRecord readMedia(const QString& tag, const QXmlStreamAttributes& attributes);

    // Appends one `sync` group per distinct time among openers (in their order), each holding
    // every sync of the scene at that time; with mediaOnly, openers that are not media syncs
    // open no group. The counter numbers the actions and runs on across calls.
    static void appendSyncGroups(QDomDocument& doc, QDomElement& sceneElement,
                                 const document::Scene* scene,
                                 const QList<document::Sync*>& openers, bool mediaOnly,
                                 int& counter);

    // Appends one action element to group and advances counter; a goto or select with neither
    // link nor url is left out (returns false, counter unchanged).
    static bool appendAction(QDomDocument& doc, QDomElement& group, const document::Sync* sync,
                             int& counter);

    // Reads an action element: unknown tags are "set", an absent or empty target is -1, the
    // word of "key" becomes its number.
    static ActionRecord readAction(const QDomElement& element);
    // The same from a start tag; its `property` children are added by readProperty.
    static ActionRecord readAction(const QString& tag, const QXmlStreamAttributes& attributes);
    static void readProperty(ActionRecord& record, const QString& name, const QString& value);

    // The value of an attribute of a start tag, with what XML cannot hold replaced.
    static QString attribute(const QXmlStreamAttributes& attributes, const QString& name);

    // The text with every character that an XML file cannot hold (controls other than tab and
    // line breaks, U+FFFE, U+FFFF, unpaired surrogates) replaced by U+FFFD, so that whatever
    // is written can be read again.
    static QString xmlText(const QString& text);

    // Reads an id that may have the older form prefix + number ("scene_4", "media_7").
    static int readId(const QString& value, const QString& oldPrefix);

    // Reads a decimal integer as the file does (empty or bad is 0), kept within a range where
    // the model's id and time arithmetic cannot overflow.
    static int readInt(const QString& value);

    // Rescales a font size saved at one view height to another; 0 or not a number is empty.
    static QString rescaleFontSize(const QString& value, int viewHeight, int savedViewHeight);

    // The property keys of a sync that may appear in a file, in a fixed order.
    static const QStringList& syncKeys();
};

} // namespace project
} // namespace selvora

#endif
