#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "libraryView/LibraryListItem.h"
#include "project/OperationsFile.h"
#include "project/ProjectXml.h"
#include "support/MediaFixtures.h"
#include "support/TestMain.h"

#include <QDomDocument>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using selvora::project::OperationsFile;
using selvora::project::ProjectXml;
using selvora::test::MediaFixtures;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;
using Properties = QHash<QString, QString>;

namespace {

// A form of an element that ignores what the file leaves open: the order of attributes, the
// order of media, groups and actions inside a scene, the id of groups and the running ids.
QString canonical(const QDomElement& element, int depth = 0) {
    QStringList attributes;
    const QDomNamedNodeMap map = element.attributes();
    const QString tag = element.tagName();
    const bool isAction = element.parentNode().nodeName() == QLatin1String("sync");
    for (int i = 0; i < map.count(); ++i) {
        const QDomAttr attribute = map.item(i).toAttr();
        if (attribute.name() == QLatin1String("id") && (tag == QLatin1String("sync") || isAction))
            continue;
        attributes << attribute.name() + "=" + attribute.value();
    }
    attributes.sort();
    QStringList children;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        children << canonical(child, depth + 1);
    if (tag != QLatin1String("foliomark"))
        children.sort();
    return tag + "[" + attributes.join(",") + "]{" + children.join(";") + "}";
}

// A sync's content without its id, for comparing timelines.
QString describe(const Sync* sync) {
    QStringList properties;
    const Properties hash = sync->getProperties();
    for (auto it = hash.constBegin(); it != hash.constEnd(); ++it)
        properties << it.key() + "=" + it.value();
    properties.sort();
    return QString("%1@%2>%3 %4")
        .arg(Definitions::getkSyncTypeLegend(int(sync->getType())))
        .arg(sync->getTime())
        .arg(sync->getMediaTarget())
        .arg(properties.join(","));
}

QStringList describeSyncs(const Scene* scene) {
    QStringList lines;
    for (const Sync* sync : scene->getAllSyncs())
        lines << describe(sync);
    lines.sort();
    return lines;
}

const QStringList kLookKeys = {"hover",        "wording",      "geometry",      "colorFill",
                               "colorOutline", "widthOutline", "styleOutline",  "fontFamily",
                               "fontType",     "fontSize",     "textAlignment", "colorFont"};

QString describeLook(const Media* media) {
    const Properties hash = media->getProperties();
    QStringList parts{media->getLabel(), QString::number(int(media->getType()))};
    for (const QString& key : kLookKeys)
        parts << key + "=" + hash.value(key);
    return parts.join("|");
}

QDomDocument parse(const QString& path) {
    QDomDocument doc;
    QFile file(path);
    doc.setContent(&file);
    return doc;
}

QString canonicalFile(const QString& path) {
    const QDomDocument doc = parse(path);
    return doc.isNull() ? QString() : canonical(doc.documentElement());
}

QSet<QString> attributeNames(const QDomElement& element) {
    QSet<QString> names;
    const QDomNamedNodeMap map = element.attributes();
    for (int i = 0; i < map.count(); ++i)
        names.insert(map.item(i).toAttr().name());
    return names;
}

} // namespace

// The project file: what the writer puts down, what the reader makes of it, and the media
// folder that the save fills.
class TestProjectFile : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    QTemporaryDir* temp = nullptr;
    QString sources;

    // A project folder under the temporary directory, named and made current.
    QString makeFolder(const QString& name) {
        const QString path = temp->path() + "/" + name;
        OperationsFile operations(doc);
        if (!operations.makeProject(path))
            return QString();
        return path;
    }

    QString save() {
        OperationsFile operations(doc);
        operations.saveProject();
        return doc->getProjectDirectory() + "/" + doc->getProjectName();
    }

    QString load(const QString& file, OperationsFile* operations = nullptr) {
        const QFileInfo info(file);
        doc->clearDocument();
        doc->setProjectDirectory(info.absolutePath());
        doc->setProjectName(info.fileName());
        OperationsFile own(doc);
        return (operations ? operations : &own)->loadProject();
    }

    QString makeSource(const QString& name, const QByteArray& bytes = "sound") {
        QFile file(sources + "/" + name);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return file.fileName();
    }

    // Two scenes with every media type, all action types, a key, a skipped link and unusual text.
    void buildSample() {
        Scene* first = doc->getScene(-1);
        first->setLabel(QString::fromUtf8("Abertura \"aspas\" <&> çãé 😀\nsegunda linha"));
        first->setTotalTime(40);
        Media* image =
            doc->createMedia(first, MediaFixtures::makeImage(sources, "Foto.JPG", QSize(64, 48)),
                             MediaType::image, "", "");
        image->setLabel(QString::fromUtf8("Imagem 'um' & <dois>"));
        image->setHover("2");
        Media* video =
            doc->createMedia(first, MediaFixtures::videoPath(), MediaType::video, "", "");
        Media* text = doc->createMedia(first, "", MediaType::text, "",
                                       QString::fromUtf8("Olá\r\n\t\"mundo\" <b>&amp;</b> 🎓"));
        text->setProperties({{"fontType", "4"}, {"textAlignment", "8"}, {"fontSize", "18"}});
        Media* shape = doc->createMedia(first, "", MediaType::shape, "35", "estrela");
        shape->setProperties({{"widthOutline", "7"}, {"styleOutline", "3"}, {"hover", "9"}});
        doc->loadSync(first, image->getId(), true, SyncType::set, 5,
                      {{"left", "12.5"},
                       {"top", "7"},
                       {"width", "30"},
                       {"height", "20"},
                       {"layer", "3"},
                       {"transparency", "0.5"}});
        doc->loadSync(first, image->getId(), true, SyncType::stop, 20, {});
        doc->loadSync(first, shape->getId(), true, SyncType::select, 10,
                      {{"key", "49"}, {"link", "1"}, {"timeEvent", "4"}});
        doc->loadSync(first, text->getId(), true, SyncType::select, 10, {{"key", "50"}});
        doc->loadSync(first, -1, true, SyncType::goTo, 30, {{"link", "1"}, {"timeEvent", "2"}});
        doc->loadSync(first, -1, true, SyncType::goTo, 35,
                      {{"url", "http://exemplo.org/?a=1&b=<2>"}});

        Scene* second = doc->createScene();
        second->setLabel("Fim");
        second->setTotalTime(15);
        doc->setCurrentScene(second->getId(), true);
        Media* sound = doc->createMedia(second, makeSource("trilha.mp3"), MediaType::audio, "", "");
        doc->loadSync(second, sound->getId(), true, SyncType::stop, 12, {});
        Q_UNUSED(video);
    }

private slots:
    void init() {
        doc = Document::instance();
        doc->newProject();
        temp = new QTemporaryDir();
        QVERIFY(temp->isValid());
        sources = temp->path() + "/fontes";
        QDir().mkpath(sources);
    }
    void cleanup() {
        doc->newProject();
        delete temp;
        temp = nullptr;
    }

    // Saved, cleared and loaded, the model holds the same; saved again, the file is the same.
    void roundTrip() {
        QVERIFY(!makeFolder("aula").isEmpty());
        buildSample();
        // Scenes in order, media looks sorted, syncs per scene; a loaded media's two paths agree.
        const auto snapshot = [this](QStringList& scenes, QStringList& looks, QStringList& syncs) {
            for (Scene* scene : doc->getSceneAllInOrder()) {
                scenes << QString("%1|%2|%3|%4")
                              .arg(scene->getId())
                              .arg(scene->getLabel())
                              .arg(scene->getTotalTime())
                              .arg(scene->getOrder());
                for (Media* media : scene->getAllMedias())
                    looks << QString::number(media->getId()) + ":" + describeLook(media);
                syncs << describeSyncs(scene);
            }
            looks.sort();
        };
        QStringList scenesBefore, looksBefore, syncsBefore;
        snapshot(scenesBefore, looksBefore, syncsBefore);
        const QString file = save();
        const QString first = canonicalFile(file);
        QVERIFY(!first.isEmpty());
        const QString firstText = QString::fromUtf8(MediaFixtures::contents(file));

        QCOMPARE(load(file), QString("noError"));
        for (Scene* scene : doc->getSceneAllInOrder())
            for (Media* media : scene->getAllMedias())
                QCOMPARE(media->getPathStart(), media->getPathProject());
        QStringList scenesAfter, looksAfter, syncsAfter;
        snapshot(scenesAfter, looksAfter, syncsAfter);
        QCOMPARE(scenesAfter, scenesBefore);
        QCOMPARE(looksAfter, looksBefore);
        // The select of the text (id 2) has neither link nor url: it is not in the file.
        const QStringList dropped = syncsBefore.filter(QRegularExpression("^select@10>2 "));
        QCOMPARE(dropped.size(), 1);
        syncsBefore.removeAll(dropped.first());
        QCOMPARE(syncsAfter, syncsBefore);

        QVERIFY(QFile::remove(file));
        save();
        QCOMPARE(canonicalFile(file), first);
        QCOMPARE(QString::fromUtf8(MediaFixtures::contents(file)).count("<sync "),
                 firstText.count("<sync "));
    }

    // Layout of the file: type line, root, meta, attributes by media type, words, groups, ids.
    void fileForm() {
        const QString folder = makeFolder("forma");
        buildSample();
        // A template's sync beside a media sync joins its group; alone at a time it makes none.
        doc->loadSync(doc->getScene(0), 77, false, SyncType::start, 5, {});
        doc->loadSync(doc->getScene(0), 78, false, SyncType::start, 25, {});
        const QString file = save();
        QCOMPARE(file, folder + "/forma.svproj");
        const QString text = QString::fromUtf8(MediaFixtures::contents(file));
        QVERIFY(text.startsWith("<!DOCTYPE FOLIOMARK>\n<foliomark "));
        QVERIFY(!text.contains("<?xml"));

        const QDomDocument dom = parse(file);
        const QDomElement root = dom.documentElement();
        QCOMPARE(root.attribute("id"), QString("forma.svproj"));
        QCOMPARE(root.attribute("version"), QString("1.0"));
        const QDomNodeList metas = root.elementsByTagName("meta");
        QCOMPARE(metas.size(), 4);
        QCOMPARE(attributeNames(metas.item(0).toElement()), QSet<QString>{"software-version"});
        QCOMPARE(metas.item(0).toElement().attribute("software-version"), QString("1.6.2"));
        QCOMPARE(metas.item(1).toElement().attribute("language"), QString("pt-BR"));
        QVERIFY(QRegularExpression("^\\d{4}-[1-9]\\d?-[1-9]\\d? \\d{1,2}:\\d{1,2}:\\d{1,2}$")
                    .match(metas.item(2).toElement().attribute("date-build"))
                    .hasMatch());
        QCOMPARE(attributeNames(metas.item(3).toElement()),
                 (QSet<QString>{"view-width", "view-height"}));
        QCOMPARE(metas.item(3).toElement().attribute("view-height"), QString("405"));
        // The composed stamp is not kept: the document still has no date.
        QVERIFY(doc->getProjectDate().isEmpty());

        const QSet<QString> common{"id", "label", "hover", "src"};
        const QSet<QString> textual{"wording",  "colorFont", "fontFamily",
                                    "fontType", "fontSize",  "textAlignment"};
        const QSet<QString> shapeOnly{"geometry", "colorFill", "colorOutline", "widthOutline",
                                      "styleOutline"};
        const QHash<QString, QSet<QString>> expected{{"image", common},
                                                     {"video", common},
                                                     {"audio", common},
                                                     {"text", common + textual},
                                                     {"shape", common + textual + shapeOnly}};
        for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
            const QDomElement media = root.elementsByTagName(it.key()).item(0).toElement();
            QVERIFY2(!media.isNull(), qPrintable(it.key()));
            QCOMPARE(attributeNames(media), it.value());
        }
        const QDomElement image = root.elementsByTagName("image").item(0).toElement();
        QCOMPARE(image.attribute("hover"), QString("push"));
        QCOMPARE(image.attribute("src"), QString("/medias/images/Midia_1.JPG"));
        QCOMPARE(root.elementsByTagName("video").item(0).toElement().attribute("hover"),
                 QString(""));
        const QDomElement shape = root.elementsByTagName("shape").item(0).toElement();
        QCOMPARE(shape.attribute("geometry"), QString("star_five_points"));
        QCOMPARE(shape.attribute("widthOutline"), QString("4.5pt"));
        QCOMPARE(shape.attribute("styleOutline"), QString::fromUtf8("1 traço 1 ponto"));
        QCOMPARE(shape.attribute("hover"), QString("border"));
        QCOMPARE(shape.attribute("src"), QString("/medias/forms/Midia_4.png"));
        const QDomElement textMedia = root.elementsByTagName("text").item(0).toElement();
        QCOMPARE(textMedia.attribute("fontType"), QString("bold_italic"));
        QCOMPARE(textMedia.attribute("textAlignment"), QString("justify"));
        QCOMPARE(textMedia.attribute("fontSize"), QString("18"));

        // Groups: one per time with a media sync; media stand before every group.
        const QDomElement firstScene = root.elementsByTagName("scene").item(0).toElement();
        QStringList order;
        QMap<int, QStringList> groups;
        for (QDomElement child = firstScene.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            order << (child.tagName() == "sync" ? "sync" : "media");
            if (child.tagName() != "sync")
                continue;
            QStringList actions;
            for (QDomElement a = child.firstChildElement(); !a.isNull(); a = a.nextSiblingElement())
                actions << a.tagName() + ":" + a.attribute("target", "none");
            actions.sort();
            groups.insert(child.attribute("time").toInt(), actions);
        }
        QCOMPARE(order.lastIndexOf("media") + 1, order.indexOf("sync"));
        QCOMPARE(groups.keys(), (QList<int>{0, 5, 10, 20, 30, 35}));
        QCOMPARE(groups.value(5), (QStringList{"set:0", "start:77"}));
        QCOMPARE(groups.value(10), QStringList{"select:3"});
        QCOMPARE(groups.value(30), QStringList{"goto:none"});
        QCOMPARE(groups.value(0).size(), 4);

        // Running ids over the whole file, without gaps for the skipped select.
        QList<int> ids;
        int stops = 0;
        for (QDomElement scene = root.firstChildElement("scene"); !scene.isNull();
             scene = scene.nextSiblingElement("scene"))
            for (QDomElement group = scene.firstChildElement("sync"); !group.isNull();
                 group = group.nextSiblingElement("sync"))
                for (QDomElement a = group.firstChildElement(); !a.isNull();
                     a = a.nextSiblingElement()) {
                    ids << a.attribute("id").toInt();
                    if (a.tagName() == "stop") {
                        ++stops;
                        QVERIFY(a.firstChildElement().isNull());
                    }
                    for (QDomElement p = a.firstChildElement(); !p.isNull();
                         p = p.nextSiblingElement()) {
                        QCOMPARE(p.tagName(), QString("property"));
                        QVERIFY(!p.attribute("value").isEmpty());
                    }
                }
        std::sort(ids.begin(), ids.end());
        QCOMPARE(stops, 2);
        QCOMPARE(ids.size(), 12);
        for (int i = 0; i < ids.size(); ++i)
            QCOMPARE(ids.at(i), i);
        // Attributes come in no fixed order.
        QVERIFY(text.contains(
            QRegularExpression(R"re(name="key" value="RED"|value="RED" name="key")re")));

        // An outside checker agrees that the file is well formed.
        if (QStandardPaths::findExecutable("xmllint").isEmpty())
            QSKIP("xmllint is not installed");
        QProcess lint;
        lint.start("xmllint", {"--noout", file});
        QVERIFY(lint.waitForFinished(20000));
        QCOMPARE(lint.exitCode(), 0);
        QCOMPARE(lint.readAllStandardError(), QByteArray());
    }

    // Hand-written files: old ids, unknown names, missing attributes.
    void readerOldForms() {
        QCOMPARE(load(MediaFixtures::dataPath("project_oldids.svproj")), QString("noError"));
        QCOMPARE(doc->getProjectDocumentVersion(), QString("0.9"));
        QCOMPARE(doc->getProjectSoftwareVersion(), QString("1.2.0"));
        QCOMPARE(doc->getProjectDate(), QStringList{"2012-5-3 8:4:1"});
        Scene* opening = doc->getScene(4);
        QVERIFY(opening);
        QCOMPARE(opening->getLabel(), QString("Abertura"));
        QCOMPARE(opening->getTotalTime(), 20);
        QVERIFY(opening->getMedia(7));
        QCOMPARE(opening->getMedia(7)->getType(), MediaType::image);
        QCOMPARE(opening->getMedia(7)->getPathStart(),
                 QFileInfo(MediaFixtures::dataPath("project_oldids.svproj")).absolutePath() +
                     "/medias/images/Midia_8.png");
        // Brought to second 0: the start's properties are on the medium.
        QCOMPARE(opening->getMedia(7)->getLeft(), QString("10"));
        QCOMPARE(opening->getMedia(9)->getFontType(), QString("1"));
        QCOMPARE(opening->getMedia(9)->getTextAlignment(), QString("4"));
        QCOMPARE(describeSyncs(opening),
                 (QStringList{"goto@5>-1 height=,key=,layer=,left=,link=2,timeEvent=,top=,"
                              "transparency=,url=,width=",
                              "set@5>7 height=,key=,layer=,left=50,link=,timeEvent=,top=,"
                              "transparency=,url=,width=",
                              "start@0>7 height=40,key=,layer=1,left=10,link=,timeEvent=,top=20,"
                              "transparency=,url=,width=30",
                              "start@0>9 height=,key=,layer=,left=,link=,timeEvent=,top=,"
                              "transparency=,url=,width=",
                              "stop@5>9 height=,key=,layer=,left=,link=,timeEvent=,top=,"
                              "transparency=,url=,width="}));
        Scene* end = doc->getScene(2);
        QVERIFY(end);
        QCOMPARE(end->getOrder(), 1);
        // An unknown element is a text; a missing label takes the default, a missing time is 0.
        QCOMPARE(end->getMedia(11)->getType(), MediaType::text);
        QCOMPARE(end->getMedia(11)->getWording(), QString("x"));
        QCOMPARE(end->getMedia(12)->getType(), MediaType::audio);
        QCOMPARE(end->getMedia(12)->getLabel(), QString::fromUtf8("Mídia_13"));
        QCOMPARE(describeSyncs(end).size(), 1);
        QVERIFY(describeSyncs(end).first().startsWith("start@0>-1 "));

        QCOMPARE(load(MediaFixtures::dataPath("project_otherroot.svproj")), QString("noError"));
        QCOMPARE(doc->getScene(0)->getLabel(), QString("Sem atributos"));
        QCOMPARE(doc->getScene(0)->getTotalTime(), 0);
        QCOMPARE(doc->getProjectViewHeight(), Definitions::getViewHeight());
    }

    // Every word a file may hold comes back as its number: media n of the file holds the n-th
    // word of each kind; the syncs at seconds 1 to 9 hold the key words.
    void readerWords() {
        QCOMPARE(load(MediaFixtures::dataPath("project_words.svproj")), QString("noError"));
        const QList<QPair<QString, QStringList>> words = {
            {"hover", {"9", "8", "0", "1", "2", "3", "4", "5", "6", "7"}},
            {"fontType", {"0", "1", "2", "3", "4", "6", "5", "7"}},
            {"textAlignment", {"1", "4", "2", "8"}},
            {"widthOutline", {"0", "1", "2", "3", "4", "5", "6", "7", "8"}},
            {"styleOutline", {"0", "1", "2", "3", "4"}},
            {"geometry", {"0", "1", "31", "51", "35", "4", "19", "30", "15", "10"}}};
        for (const auto& kind : words) {
            QStringList got;
            for (int i = 0; i < kind.second.size(); ++i)
                got << doc->getScene(0)->getMedia(i)->getProperties().value(kind.first);
            QCOMPARE(kind.first + ": " + got.join(','), kind.first + ": " + kind.second.join(','));
        }
        QStringList keys;
        for (int time = 1; time <= 9; ++time)
            keys << doc->getScene(0)->getAllSyncs(time).value(0)->getKey();
        QCOMPARE(keys, (QStringList{"49", "50", "51", "52", QString::number(0x1000013),
                                    QString::number(0x1000015), QString::number(0x1000012),
                                    QString::number(0x1000014), QString::number(0x1000005)}));
    }

    // Each number of each enumeration goes out as its word and comes back as itself.
    void wordsBothWays_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QList<int>>("values");
        QTest::addRow("hover") << "hover" << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
        QTest::addRow("fontType") << "fontType" << QList<int>{0, 1, 2, 3, 4, 5, 6, 7};
        QTest::addRow("textAlignment") << "textAlignment" << QList<int>{1, 2, 4, 8};
        QTest::addRow("widthOutline") << "widthOutline" << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8};
        QTest::addRow("styleOutline") << "styleOutline" << QList<int>{0, 1, 2, 3, 4};
        QList<int> shapes;
        for (int i = 0; i < Definitions::kShapeCount; ++i)
            shapes << i;
        QTest::addRow("geometry") << "geometry" << shapes;
    }
    void wordsBothWays() {
        QFETCH(QString, key);
        QFETCH(QList<int>, values);
        Scene* scene = doc->getScene(-1);
        for (int value : values) {
            Media* shape = doc->createMedia(scene, "", MediaType::shape, "", "");
            shape->setProperties({{key, QString::number(value)}});
            QDomDocument dom;
            QDomElement parent = dom.createElement("scene");
            const QDomElement element = ProjectXml::appendMedia(dom, parent, shape, "/x");
            QVERIFY(!element.attribute(key).isEmpty());
            QCOMPARE(ProjectXml::readMedia(element).properties.value(key), QString::number(value));
        }
    }

    void fontSizeRescaled_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("savedHeight");
        QTest::addColumn<QString>("expected");
        QTest::addRow("600 to 768") << "12" << 768 << 600 << "15.36";
        QTest::addRow("600 to 405") << "12" << 405 << 600 << "8.1";
        QTest::addRow("same height") << "14" << 405 << 405 << "14";
        QTest::addRow("four digits") << "13" << 405 << 300 << "17.55";
        QTest::addRow("zero") << "0" << 405 << 600 << "";
        QTest::addRow("not a number") << "abc" << 405 << 600 << "";
        QTest::addRow("empty") << "" << 405 << 600 << "";
        QTest::addRow("no saved height") << "12" << 405 << 0 << "inf";
    }
    void fontSizeRescaled() {
        QFETCH(QString, value);
        QFETCH(int, height);
        QFETCH(int, savedHeight);
        QFETCH(QString, expected);
        QCOMPARE(ProjectXml::rescaleFontSize(value, height, savedHeight), expected);
    }

    void fontSizeFromOtherView() {
        QCOMPARE(load(MediaFixtures::dataPath("project_height600.svproj")), QString("noError"));
        QCOMPARE(doc->getProjectViewHeight(), 600);
        Scene* scene = doc->getScene(0);
        QCOMPARE(scene->getMedia(0)->getFontSize(), QString("8.1"));
        QCOMPARE(scene->getMedia(1)->getFontSize(), QString(""));
        QCOMPARE(scene->getMedia(2)->getFontSize(), QString(""));
        QCOMPARE(scene->getMedia(3)->getFontSize(), QString("14.51"));

        QCOMPARE(load(MediaFixtures::dataPath("project_noheight.svproj")), QString("noError"));
        QCOMPARE(doc->getProjectViewHeight(), 0);
        QCOMPARE(doc->getScene(0)->getMedia(0)->getFontSize(), QString("inf"));
    }

    void loadReports_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("report");
        QTest::addRow("well formed")
            << MediaFixtures::dataPath("project_words.svproj") << "noError";
        QTest::addRow("no scenes")
            << MediaFixtures::dataPath("project_noscenes.svproj") << "noScenes";
        QTest::addRow("not well formed")
            << MediaFixtures::dataPath("project_malformed.svproj") << "openError";
        QTest::addRow("missing") << MediaFixtures::dataPath("nothing_here.svproj") << "openError";
    }
    void loadReports() {
        QFETCH(QString, file);
        QFETCH(QString, report);
        OperationsFile operations(doc);
        QSignalSpy reports(&operations, &OperationsFile::loadReport);
        QSignalSpy finished(&operations, &OperationsFile::finished);
        QSignalSpy titles(&operations, &OperationsFile::titleProgress);
        QCOMPARE(load(file, &operations), report);
        QCOMPARE(reports.size(), 1);
        QCOMPARE(reports.first().first().toString(), report);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(titles.first().first().toString(), QString("Carregando"));
        if (report != "noError")
            QCOMPARE(doc->getCountScenes(), 0);
    }

    // A loaded project keeps the stamp of its file, and the progress of a save moves per scene.
    void dateKeptAndProgress() {
        QCOMPARE(load(MediaFixtures::dataPath("project_oldids.svproj")), QString("noError"));
        const QString folder = makeFolder("copia");
        Scene* empty = doc->createScene();
        Q_UNUSED(empty);
        OperationsFile operations(doc);
        QSignalSpy progress(&operations, &OperationsFile::progress);
        QSignalSpy finished(&operations, &OperationsFile::finished);
        QSignalSpy titles(&operations, &OperationsFile::titleProgress);
        // The stored pictures are gone: nothing is copied again, the save does not fail.
        operations.saveProject();
        QCOMPARE(finished.size(), 1);
        QCOMPARE(titles.first().first().toString(), QString("Salvando"));
        QList<int> values;
        for (const QList<QVariant>& args : progress)
            values << args.first().toInt();
        // Three scenes: 2 media in the first, 2 in the second, none in the third.
        QCOMPARE(values, (QList<int>{11 * 100 / 32, 11 * 100 / 32, 21 * 100 / 32, 21 * 100 / 32}));
        const QDomDocument dom = parse(folder + "/copia.svproj");
        QCOMPARE(dom.elementsByTagName("meta").item(2).toElement().attribute("date-build"),
                 QString("2012-5-3 8:4:1"));
        QVERIFY(!doc->isModified());
        // Ids of the older form were read as numbers and are written as numbers.
        QCOMPARE(dom.elementsByTagName("scene").item(0).toElement().attribute("id"), QString("4"));
    }

    // Files imported into the library and not used by any medium come back with the project,
    // beside the ones in use; a file gone meanwhile keeps its row, and removal still works.
    void libraryRoundTrip() {
        makeFolder("biblioteca");
        const QString used = MediaFixtures::makeImage(sources, "usada.png", QSize(20, 10));
        const QString waiting = MediaFixtures::makeImage(sources, "espera.png", QSize(20, 10));
        const QString gone = MediaFixtures::makeImage(sources, "sumiu.png", QSize(20, 10));
        doc->createMedia(doc->getScene(-1), used, MediaType::image, "", "");
        doc->addPathMedia(waiting);
        doc->addPathMedia(gone);
        const QString file = save();
        const QDomElement library = parse(file).documentElement().lastChildElement();
        QCOMPARE(canonical(library),
                 QString("library[]{file[path=%1]{};file[path=%2]{}}").arg(waiting, gone));

        QVERIFY(QFile::remove(gone));
        QCOMPARE(load(file), QString("noError"));
        const QString stored =
            doc->getSceneAllInOrder().first()->getAllMedias().first()->getPathStart();
        QCOMPARE(doc->getPathMedia(), QStringList({stored, waiting, gone}));
        const selvora::libraryView::LibraryListItem row(gone);
        QCOMPARE(row.text(), QString("sumiu.png"));
        QVERIFY(row.getToolTipItem().isNull());

        doc->removePathMedia(gone);
        save();
        QCOMPARE(load(file), QString("noError"));
        QCOMPARE(doc->getPathMedia(), QStringList({stored, waiting}));
    }

    // ------------------------------------------------------------ the media folder

    void makeProjectTree() {
        const QString path = temp->path() + "/nova aula";
        OperationsFile operations(doc);
        QVERIFY(operations.makeProject(path));
        for (const char* sub :
             {"/medias/images", "/medias/videos", "/medias/texts", "/medias/forms"})
            QVERIFY2(QDir(path + sub).exists(), sub);
        QCOMPARE(doc->getProjectName(), QString("nova aula.svproj"));
        QCOMPARE(doc->getProjectDirectory(), path);

        // A folder that cannot be made changes nothing.
        QFile blocker(temp->path() + "/arquivo");
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        QVERIFY(!operations.makeProject(temp->path() + "/arquivo/dentro"));
        QCOMPARE(doc->getProjectName(), QString("nova aula.svproj"));
        QCOMPARE(doc->getProjectDirectory(), path);
    }

    // Copied once with the case of its extension; text and shape rendered at every save; the
    // sound glued onto the folder's name.
    void saveMediaStores() {
        const QString folder = makeFolder("licao");
        Scene* scene = doc->getScene(-1);
        const QString photo = MediaFixtures::makeImage(sources, "Foto.JPG", QSize(20, 10));
        Media* image = doc->createMedia(scene, photo, MediaType::image, "", "");
        Media* text = doc->createMedia(scene, "", MediaType::text, "", "a");
        Media* sound = doc->createMedia(scene, makeSource("som.Mp3"), MediaType::audio, "", "");
        QSignalSpy renders(doc, &Document::generateImage);

        save();
        QCOMPARE(image->getPathProject(), folder + "/medias/images/Midia_1.JPG");
        QVERIFY(QFile::exists(image->getPathProject()));
        QCOMPARE(text->getPathProject(), folder + "/medias/texts/Midia_2.png");
        QCOMPARE(sound->getPathProject(), folder + "Midia_3.Mp3");
        QVERIFY(QFile::exists(sound->getPathProject()));
        QCOMPARE(renders.size(), 1);
        QCOMPARE(renders.first().at(1).value<Media*>(), text);

        // The source may vanish once stored; the second save copies nothing and renders again.
        QVERIFY(QFile::remove(photo));
        QVERIFY(QFile::remove(image->getPathProject()));
        OperationsFile operations(doc);
        QSignalSpy reports(&operations, &OperationsFile::saveReport);
        operations.saveProject();
        QCOMPARE(reports.size(), 0);
        QVERIFY(!QFile::exists(image->getPathProject()));
        QCOMPARE(renders.size(), 2);
    }

    void saveMediaFailures_data() {
        QTest::addColumn<QString>("kind");
        QTest::addRow("source gone") << "readError";
        QTest::addRow("target unwritable") << "writeError";
        QTest::addRow("name without dot") << "writeError";
    }
    void saveMediaFailures() {
        QFETCH(QString, kind);
        const QString folder = makeFolder("falha");
        Scene* scene = doc->getScene(-1);
        QString source = MediaFixtures::makeImage(sources, "a.png", QSize(8, 8));
        if (QString(QTest::currentDataTag()) == "name without dot") {
            source = sources + "/semponto";
            QVERIFY(QFile::copy(sources + "/a.png", source));
        }
        doc->createMedia(scene, source, MediaType::image, "", "");
        QFile old(folder + "/falha.svproj");
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("antigo");
        old.close();
        if (QString(QTest::currentDataTag()) == "source gone")
            QVERIFY(QFile::remove(source));
        if (QString(QTest::currentDataTag()) == "target unwritable")
            QVERIFY(QDir(folder + "/medias/images").removeRecursively());
        doc->setModified(true);

        OperationsFile operations(doc);
        QSignalSpy reports(&operations, &OperationsFile::saveReport);
        QSignalSpy finished(&operations, &OperationsFile::finished);
        operations.saveProject(false);
        QCOMPARE(reports.size(), 1);
        QCOMPARE(reports.first().at(0).toString(), kind);
        QCOMPARE(reports.first().at(1).toString(), source);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(QString::fromUtf8(MediaFixtures::contents(folder + "/falha.svproj")),
                 QString("antigo"));
        QVERIFY(doc->isModified());
    }

    // A stored file goes at once with its medium; what never was stored is not looked for.
    void deleteMediaRemovesStoredFile() {
        makeFolder("apagar");
        Scene* scene = doc->getScene(-1);
        const QString source = MediaFixtures::makeImage(sources, "b.png", QSize(8, 8));
        Media* stored = doc->createMedia(scene, source, MediaType::image, "", "");
        Media* sound = doc->createMedia(scene, makeSource("s.wav"), MediaType::audio, "", "");
        save();
        Media* fresh = doc->createMedia(scene, source, MediaType::image, "", "");
        OperationsFile operations(doc);
        const QString storedPath = stored->getPathProject();
        const QString soundPath = sound->getPathProject();
        QVERIFY(QFile::exists(storedPath) && QFile::exists(soundPath));
        operations.deleteMedia(fresh);
        operations.deleteMedia(stored);
        operations.deleteMedia(sound);
        QVERIFY(!QFile::exists(storedPath));
        QVERIFY(!QFile::exists(soundPath));
        QVERIFY(QFile::exists(source));
    }

    // A crafted src never leads a removal out of the project's medias tree.
    void craftedSourcesDeleteNothingOutside_data() {
        QTest::addColumn<QString>("src");
        QTest::addRow("parent") << "/../vitima.png";
        QTest::addRow("deep parent") << "/medias/images/../../../vitima.png";
        QTest::addRow("into home") << "/../../../../../../../../..%1/vitima.png";
        QTest::addRow("project file") << "/crafted.svproj";
        QTest::addRow("through a link") << "/medias/images/fora/vitima.png";
        QTest::addRow("sibling named like sound") << "/../outroMidia_1.png";
    }
    void craftedSourcesDeleteNothingOutside() {
        QFETCH(QString, src);
        const QString project = temp->path() + "/crafted";
        QVERIFY(QDir().mkpath(project + "/medias/images"));
        const QString home = temp->path() + "/home";
        QVERIFY(QDir().mkpath(home));
        src.replace("%1", home);
        const QStringList victims{temp->path() + "/vitima.png", home + "/vitima.png",
                                  temp->path() + "/outroMidia_1.png"};
        for (const QString& victim : victims)
            QVERIFY(QFile::copy(MediaFixtures::makeImage(sources, "v.png", QSize(4, 4)), victim));
        QVERIFY(QFile::link(home, project + "/medias/images/fora"));
        QFile file(project + "/crafted.svproj");
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QString("<foliomark><scene id=\"0\"><image id=\"0\" src=\"%1\"/></scene>"
                           "</foliomark>")
                       .arg(src.toHtmlEscaped())
                       .toUtf8());
        file.close();
        QCOMPARE(load(file.fileName()), QString("noError"));
        Media* media = doc->getScene(0)->getMedia(0);
        QVERIFY(media);
        // Through the scene, as the controller sees it.
        OperationsFile operations(doc);
        connect(doc->getScene(0), &Scene::mediaRemoved, &operations, &OperationsFile::deleteMedia);
        QVERIFY(doc->getScene(0)->removeMedia(0));
        for (const QString& victim : victims)
            QVERIFY2(QFile::exists(victim), qPrintable(victim));
        QVERIFY(QFile::exists(file.fileName()));
    }

    void projectRelativePath_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("src");
        auto row = [](const char* name, const char* path, const char* src) {
            QTest::addRow(name) << QString(path) << QString(src);
        };
        row("image", "/home/u/aula/medias/images/Midia_3.png", "/medias/images/Midia_3.png");
        row("sound", "/home/u/aulaMidia_4.mp3", "/home/u/aulaMidia_4.mp3");
        row("short", "a/b", "/a/b");
        row("empty", "", "/");
    }
    void projectRelativePath() {
        QFETCH(QString, path);
        QFETCH(QString, src);
        QCOMPARE(OperationsFile::projectRelativePath(path), src);
    }
};

SELVORA_TEST_MAIN(TestProjectFile)
#include "tst_projectfile.moc"
