#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "libraryView/LibraryListItem.h"
#include "project/OperationsFile.h"
#include "support/MediaFixtures.h"
#include "support/TestMain.h"

#include <QDomDocument>
#include <QSignalSpy>
#include <QTemporaryDir>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using selvora::project::OperationsFile;
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

        const QDomDocument dom = parse(file);
        const QDomElement root = dom.documentElement();
        QCOMPARE(root.attribute("id"), QString("forma.svproj"));
        const QDomNodeList metas = root.elementsByTagName("meta");
        QCOMPARE(metas.size(), 4);
        QVERIFY(QRegularExpression("^\\d{4}-[1-9]\\d?-[1-9]\\d? \\d{1,2}:\\d{1,2}:\\d{1,2}$")
                    .match(metas.item(2).toElement().attribute("date-build"))
                    .hasMatch());
        QCOMPARE(metas.item(3).toElement().attribute("view-height"), QString("405"));
        // The composed stamp is not kept: the document still has no date.
        QVERIFY(doc->getProjectDate().isEmpty());

        const QDomElement image = root.elementsByTagName("image").item(0).toElement();
        QCOMPARE(image.attribute("hover"), QString("push"));
        QCOMPARE(image.attribute("src"), QString("/medias/images/Midia_1.JPG"));
        const QDomElement shape = root.elementsByTagName("shape").item(0).toElement();
        QCOMPARE(shape.attribute("geometry"), QString("star_five_points"));
        QCOMPARE(shape.attribute("styleOutline"), QString::fromUtf8("1 traço 1 ponto"));
        const QDomElement textMedia = root.elementsByTagName("text").item(0).toElement();
        QCOMPARE(textMedia.attribute("fontType"), QString("bold_italic"));

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

        // Attributes come in no fixed order.
        QVERIFY(text.contains(
            QRegularExpression(R"re(name="key" value="RED"|value="RED" name="key")re")));
    }

    // Hand-written files: old ids, unknown names, missing attributes.
    void readerOldForms() {
        QCOMPARE(load(MediaFixtures::dataPath("project_oldids.svproj")), QString("noError"));
        QCOMPARE(doc->getProjectDate(), QStringList{"2012-5-3 8:4:1"});
        Scene* opening = doc->getScene(4);
        QVERIFY(opening);
        QCOMPARE(opening->getMedia(7)->getPathStart(),
                 QFileInfo(MediaFixtures::dataPath("project_oldids.svproj")).absolutePath() +
                     "/medias/images/Midia_8.png");
        // Brought to second 0: the start's properties are on the medium.
        QCOMPARE(opening->getMedia(7)->getLeft(), QString("10"));
        QCOMPARE(opening->getMedia(9)->getFontType(), QString("1"));
        const QStringList syncs = describeSyncs(opening);
        QCOMPARE(syncs.size(), 5);
        QVERIFY(syncs.at(2).startsWith("start@0>7 height=40,key=,layer=1,left=10,"));
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

    void fontSizeFromOtherView() {
        QCOMPARE(load(MediaFixtures::dataPath("project_height600.svproj")), QString("noError"));
        QCOMPARE(doc->getProjectViewHeight(), 600);
        Scene* scene = doc->getScene(0);
        QCOMPARE(scene->getMedia(0)->getFontSize(), QString("8.1"));
        QCOMPARE(scene->getMedia(3)->getFontSize(), QString("14.51"));

        QCOMPARE(load(MediaFixtures::dataPath("project_noheight.svproj")), QString("noError"));
        QCOMPARE(doc->getProjectViewHeight(), 0);
        QCOMPARE(doc->getScene(0)->getMedia(0)->getFontSize(), QString("inf"));
    }

    // A loaded project keeps the stamp of its file, and the progress of a save moves per scene.
    void dateKeptAndProgress() {
        QCOMPARE(load(MediaFixtures::dataPath("project_oldids.svproj")), QString("noError"));
        const QString folder = makeFolder("copia");
        doc->createScene();
        OperationsFile operations(doc);
        QSignalSpy progress(&operations, &OperationsFile::progress);
        // The stored pictures are gone: nothing is copied again, the save does not fail.
        operations.saveProject();
        QList<int> values;
        for (const QList<QVariant>& args : progress)
            values << args.first().toInt();
        // Three scenes: 2 media in the first, 2 in the second, none in the third.
        QCOMPARE(values, (QList<int>{11 * 100 / 32, 11 * 100 / 32, 21 * 100 / 32, 21 * 100 / 32}));
        const QDomDocument dom = parse(folder + "/copia.svproj");
        QCOMPARE(dom.elementsByTagName("meta").item(2).toElement().attribute("date-build"),
                 QString("2012-5-3 8:4:1"));
        // Ids of the older form were read as numbers and are written as numbers.
        QCOMPARE(dom.elementsByTagName("scene").item(0).toElement().attribute("id"), QString("4"));
    }

    // Files imported into the library and not used by any medium come back with the project,
    // beside the ones in use; a file gone meanwhile keeps its row.
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
    }

    // ------------------------------------------------------------ the media folder

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

    // A store that cannot be written stops the save: the old file stays, the project modified.
    // (A source gone on the way is the controller's test, with its box.)
    void saveMediaFailure() {
        const QString folder = makeFolder("falha");
        const QString source = MediaFixtures::makeImage(sources, "a.png", QSize(8, 8));
        doc->createMedia(doc->getScene(-1), source, MediaType::image, "", "");
        QFile old(folder + "/falha.svproj");
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("antigo");
        old.close();
        QVERIFY(QDir(folder + "/medias/images").removeRecursively());
        doc->setModified(true);

        OperationsFile operations(doc);
        QSignalSpy reports(&operations, &OperationsFile::saveReport);
        QSignalSpy finished(&operations, &OperationsFile::finished);
        operations.saveProject(false);
        QCOMPARE(reports.size(), 1);
        QCOMPARE(reports.first().at(0).toString(), QString("writeError"));
        QCOMPARE(reports.first().at(1).toString(), source);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(MediaFixtures::contents(folder + "/falha.svproj"), QByteArray("antigo"));
        QVERIFY(doc->isModified());
    }

    // A crafted src never leads a removal out of the project's medias tree.
    void craftedSourcesDeleteNothingOutside_data() {
        QTest::addColumn<QString>("src");
        QTest::addRow("parent") << "/../vitima.png";
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
