#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/OperationsFile.h"
#include "project/Project.h"
#include "project/ProjectScan.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <sys/stat.h>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using selvora::project::OperationsFile;
using selvora::project::Project;
using selvora::project::ProjectScan;
using selvora::test::MediaFixtures;
using selvora::test::ModalAnswerer;
using Status = Definitions::kPlayerStatus;

namespace {

const QByteArray kHead = "<!DOCTYPE FOLIOMARK>\n<foliomark version=\"1.0\">\n"
                         " <scene id=\"0\" label=\"Cena\" time=\"10\" order=\"0\">\n";
const QByteArray kTail = " </scene>\n</foliomark>\n";

QByteArray repeated(const QByteArray& piece, int times) {
    QByteArray bytes;
    bytes.reserve(piece.size() * times);
    for (int i = 0; i < times; ++i)
        bytes += piece;
    return bytes;
}

// The large reproducers, made here rather than kept as files.
QByteArray generated(const QString& kind) {
    if (kind == "nesting")
        return kHead + repeated("<a>", 25000) + repeated("</a>", 25000) + kTail;
    if (kind == "attributes") {
        QByteArray tag = "<text";
        for (int i = 0; i < 40000; ++i)
            tag += " a" + QByteArray::number(i) + "=\"\"";
        return kHead + tag + "/>\n" + kTail;
    }
    if (kind == "elements")
        return kHead + repeated("<x/>", ProjectScan::kMaxElements) + kTail;
    return QByteArray();
}

QString sceneLabels(Document* doc) {
    QStringList labels;
    for (const Scene* scene : doc->getSceneAllInOrder())
        labels << scene->getLabel();
    return labels.join("|");
}

// Every value a file keeps, in a form that ignores hash order and the ids syncs get anew.
QString describeModel(Document* doc) {
    QStringList lines{doc->getProjectDate().join(",")};
    for (const Scene* scene : doc->getSceneAllInOrder()) {
        lines << QString("scene %1 %2 %3 %4")
                     .arg(scene->getId())
                     .arg(scene->getOrder())
                     .arg(scene->getTotalTime())
                     .arg(scene->getLabel());
        QStringList items;
        for (const Media* media : scene->getAllMedias()) {
            QStringList look;
            const QHash<QString, QString> properties = media->getProperties();
            for (auto it = properties.constBegin(); it != properties.constEnd(); ++it)
                look << it.key() + "=" + it.value();
            look.sort();
            items << QString("media %1 %2 %3 %4")
                         .arg(media->getId())
                         .arg(media->getLabel(), media->getPathProject().section('/', -3),
                              look.join(","));
        }
        for (const Sync* sync : scene->getAllSyncs()) {
            QStringList values;
            const QHash<QString, QString> properties = sync->getProperties();
            for (auto it = properties.constBegin(); it != properties.constEnd(); ++it)
                if (!it.value().isEmpty())
                    values << it.key() + "=" + it.value();
            values.sort();
            items << QString("sync %1 %2 %3 %4")
                         .arg(int(sync->getType()))
                         .arg(sync->getTime())
                         .arg(sync->getMediaTarget())
                         .arg(values.join(","));
        }
        items.sort();
        lines << items;
    }
    return lines.join("\n");
}

} // namespace

// Project files as an attacker would make them: each one loads or is refused without a crash,
// a hang, a read outside the project or a model that can no longer be saved and opened again.
class TestHostileFiles : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    QTemporaryDir* temp = nullptr;
    QString folder;

    QString writeProject(const QByteArray& bytes) {
        QFile file(folder + "/hostil.svproj");
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            return QString();
        return file.fileName();
    }

    QString load(const QString& path) {
        doc->clearDocument();
        const QFileInfo info(path);
        doc->setProjectDirectory(info.absolutePath());
        doc->setProjectName(info.fileName());
        return OperationsFile(doc).loadProject();
    }

    QString loadData(const QString& name) {
        QFile::remove(folder + "/" + name);
        QFile::copy(MediaFixtures::dataPath("hostile/" + name), folder + "/" + name);
        return load(folder + "/" + name);
    }

    // Saves the model where it was loaded from; a media that cannot be read stops the save.
    bool saveInPlace() {
        OperationsFile operations(doc);
        QSignalSpy failures(&operations, &OperationsFile::saveReport);
        operations.saveProject();
        return failures.isEmpty();
    }

private slots:
    void initTestCase() {
        doc = Document::instance();
        temp = new QTemporaryDir;
        folder = temp->path() + "/projeto";
        QVERIFY(QDir().mkpath(folder + "/medias/images"));
        QVERIFY(QDir().mkpath(folder + "/medias/texts"));
        QVERIFY(QDir().mkpath(folder + "/medias/videos"));
        MediaFixtures::makeImage(folder + "/medias/images", "Midia_2.png", QSize(72, 81));
        MediaFixtures::makeImage(temp->path(), "fora.png", QSize(10, 10));
        QCOMPARE(mkfifo(QFile::encodeName(folder + "/medias/images/fifo.png").constData(), 0600),
                 0);
        QVERIFY(QFile::link("/dev/zero", folder + "/medias/images/elo.png"));
    }

    void cleanupTestCase() {
        doc->newProject();
        delete temp;
    }

    void cleanup() { doc->newProject(); }

    // Refused before anything is built: the model stays empty.
    void refused_data() {
        // A file under tests/data/hostile, or one made here.
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("report");
        auto row = [](const char* name, const char* source, const char* report) {
            QTest::newRow(name) << QString(source) << QString(report);
        };
        row("nesting too deep", "nesting", "openError");
        row("attributes beyond any element", "attributes", "openError");
        row("entity expansion", "entity_expansion.svproj", "openError");
        row("external entity", "external_entity.svproj", "openError");
        row("noncharacter", "noncharacter_reference.svproj", "openError");
        row("too many elements", "elements", "sizeError");
        row("file too large", "size", "sizeError");
        row("project is a pipe", "pipe", "openError");
    }

    void refused() {
        QFETCH(QString, source);
        QFETCH(QString, report);
        QString path;
        if (source.endsWith(".svproj")) {
            path = folder + "/" + source;
            QVERIFY(QFile::copy(MediaFixtures::dataPath("hostile/" + source), path));
        } else if (source == "size") {
            path = writeProject(kHead + kTail);
            QFile grown(path);
            QVERIFY(grown.resize(ProjectScan::kMaxFileBytes + 1)); // sparse: nothing is written
        } else if (source == "pipe") {
            path = temp->path() + "/tubo.svproj";
            QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        } else {
            path = writeProject(generated(source));
        }
        QVERIFY(!path.isEmpty());
        QCOMPARE(load(path), report);
        QCOMPARE(doc->getSceneAll().size(), 0);
        QFile::remove(path);
    }

    // What the user reads: the size limit has a message of its own that names the limits.
    void refusalShown_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("text");
        QTest::newRow("size") << "elements"
                              << "O projeto é grande demais para ser aberto: o limite é de 64 MB "
                                 "e de 1.000.000 elementos.";
    }

    void refusalShown() {
        QFETCH(QString, kind);
        QFETCH(QString, text);
        const QString path = writeProject(generated(kind));
        Project project(doc);
        ModalAnswerer answerer;
        answerer.answer("OK");
        project.load(path);
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.last().title, QString("Erro"));
        QCOMPARE(answerer.last().text, text);
        QCOMPARE(sceneLabels(doc), QString("Cena 1")); // a new project
    }

    // A medium is read only from a regular file inside the project folder; anything else is a
    // medium whose file is missing, and the project still saves and opens again.
    void mediaPaths_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("stored");
        const QString picture = "/medias/images/Midia_2.png";
        QTest::newRow("ordinary") << 1 << picture << picture;
        QTest::newRow("climbs to a picture") << 4 << ""
                                             << "/fora.png";
        QTest::newRow("pipe inside") << 5 << ""
                                     << "/medias/images/fifo.png";
        QTest::newRow("link to a device") << 6 << ""
                                          << "/medias/images/elo.png";
        QTest::newRow("folder") << 7 << ""
                                << "/medias";
        QTest::newRow("climbs and comes back") << 8 << picture << picture;
    }

    void mediaPaths() {
        QFETCH(int, id);
        QFETCH(QString, start);
        QFETCH(QString, stored);
        QCOMPARE(loadData("media_paths.svproj"), QString("noError"));
        const Media* media = doc->getScene(0)->getMedia(id);
        QVERIFY(media);
        QCOMPARE(media->getPathStart(), start.isEmpty() ? start : folder + start);
        QCOMPARE(media->getPathProject(), folder + stored);
        if (id == 1) // the picture's own size: 72 of 720
            QCOMPARE(media->getWidth(), QString("10"));
        const QString before = describeModel(doc);
        QVERIFY(saveInPlace());
        QCOMPARE(load(folder + "/media_paths.svproj"), QString("noError"));
        QCOMPARE(describeModel(doc).section('\n', 1), before.section('\n', 1));
    }

    // Characters that XML cannot hold never reach the file; what a file holds comes back.
    void roundTrip_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("kept");
        const QString bad = QString(QChar(0xFFFD));
        QTest::newRow("U+FFFE") << QString("a%1b").arg(QChar(0xFFFE)) << "a" + bad + "b";
        QTest::newRow("lone high surrogate")
            << QString("a%1b").arg(QChar(0xD800)) << "a" + bad + "b";
        QTest::newRow("control") << QString("a%1%2b").arg(QChar(0x1)).arg(QChar(0x1F))
                                 << "a" + bad + bad + "b";
        const QString astral = QString::fromUcs4(U"\U0001FFFE\U0001F600 \t\n\r");
        QTest::newRow("astral and breaks") << astral << astral;
    }

    void roundTrip() {
        QFETCH(QString, typed);
        QFETCH(QString, kept);
        QCOMPARE(loadData("astral_characters.svproj"), QString("noError"));
        Scene* scene = doc->getScene(0);
        Media* media = scene->getMedia(0);
        scene->setLabel(typed);
        media->setLabel(typed);
        media->setWording(typed);
        media->setFontFamily(typed);
        media->setColorFont(typed);
        scene->getAllSyncs(0).first()->setProperties({{"url", typed}, {"left", "10"}});
        QVERIFY(saveInPlace());
        QCOMPARE(load(folder + "/astral_characters.svproj"), QString("noError"));
        scene = doc->getScene(0);
        media = scene->getMedia(0);
        for (const QString& value :
             {scene->getLabel(), media->getLabel(), media->getWording(), media->getFontFamily(),
              media->getColorFont(), scene->getAllSyncs(0).first()->getUrl()})
            QCOMPARE(value, kept);
    }

    // A jump is entered from the event loop: a scene that jumps to itself, or two that jump to
    // each other, at second 0 go on jumping without growing the stack; an ordinary jump shows
    // the target scene, which then plays.
    void gotoAtSecondZero_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("jumps");
        QTest::newRow("onward") << "goto_onward.svproj" << 1;
        QTest::newRow("to each other") << "goto_pingpong.svproj" << 3000;
    }

    void gotoAtSecondZero() {
        QFETCH(QString, file);
        QFETCH(int, jumps);
        QCOMPARE(loadData(file), QString("noError"));
        doc->openProject();
        QSignalSpy entered(doc, &Document::sceneCurrentId);
        Scene* first = doc->getScene(-1);
        first->playScene();
        QCOMPARE(first->getStatusPlayer(), Status::pause); // left, the jump not yet taken
        QCOMPARE(entered.count(), 0);
        QTRY_VERIFY_WITH_TIMEOUT(entered.count() >= jumps, 60000);
        if (jumps == 1) {
            Scene* target = doc->getScene(1);
            QCOMPARE(doc->getScene(-1), target);
            QCOMPARE(target->getCurrentTime(), 3);
            QCOMPARE(target->getStatusPlayer(), Status::play);
            target->pauseScene();
        }
        doc->clearDocument(); // drops the jump still waiting
        QCoreApplication::processEvents();
        QCOMPARE(doc->getSceneAll().size(), 0);
    }
};

SELVORA_TEST_MAIN(TestHostileFiles)
#include "tst_hostilefiles.moc"
