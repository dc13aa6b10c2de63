#include "app/MainWindow.h"
#include "app/Resources.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/OperationsFile.h"
#include "project/Project.h"
#include "project/Recovery.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestEnvironment.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDialog>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <cstdio>
#include <sys/resource.h>

using selvora::MainWindow;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using selvora::project::OperationsFile;
using selvora::project::Project;
using selvora::project::Recovery;
using selvora::test::MediaFixtures;
using selvora::test::ModalAnswerer;
using MediaType = selvora::Definitions::kMediaType;

namespace {

QString sorted(const QHash<QString, QString>& properties) {
    QStringList pairs;
    for (auto it = properties.begin(); it != properties.end(); ++it) {
        // A number as a number: "11.60" in memory reads back from any file as "11.6".
        bool number = false;
        const double value = it.value().toDouble(&number);
        pairs << it.key() + "=" + (number ? QString::number(value) : it.value());
    }
    pairs.sort();
    return pairs.join(",");
}

// The model as a user would compare it: scenes, media with the bytes of their files, syncs.
// Paths are left out: the same picture may be read from another place after a save.
QString describe(Document* doc) {
    QStringList lines;
    for (Scene* scene : doc->getSceneAllInOrder()) {
        lines << QString("scene %1 '%2' %3s order %4")
                     .arg(scene->getId())
                     .arg(scene->getLabel())
                     .arg(scene->getTotalTime())
                     .arg(scene->getOrder());
        QStringList items;
        for (Media* media : scene->getAllMedias()) {
            // Text and shapes are drawn from their properties; their pictures come with a save.
            const bool drawn =
                media->getType() == MediaType::text || media->getType() == MediaType::shape;
            QFile file(media->getPathStart());
            const QByteArray bytes = drawn                            ? "drawn"
                                     : file.open(QIODevice::ReadOnly) ? file.readAll()
                                                                      : "none";
            items << QString("media %1 %2 '%3' %4 %5")
                         .arg(media->getId())
                         .arg(int(media->getType()))
                         .arg(media->getLabel(), sorted(media->getProperties()),
                              QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
        }
        for (Sync* sync : scene->getAllSyncs())
            items << QString("sync %1 %2 %3 %4")
                         .arg(sync->getTime())
                         .arg(int(sync->getType()))
                         .arg(sync->getMediaTarget())
                         .arg(sorted(sync->getProperties()));
        items.sort();
        lines << items;
    }
    return lines.join("\n");
}

QStringList entries(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

// Whether some program's copy is complete in the data folder.
bool anyCopy() {
    for (const QString& name : entries(Recovery::rootFolder()))
        if (QFileInfo(Recovery::rootFolder() + "/" + name + "/estado.json").isFile())
            return true;
    return false;
}

// The program as the user runs it, with the project of argv[2] open: it adds a picture and a
// scene with a text, prints the model and waits to be killed.
int helperMain(int argc, char** argv) {
    QApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName("Corvane Systems");
    QCoreApplication::setApplicationName("selvora-tests");
    selvora::initResources();
    Document::registerMetaTypes();
    Recovery::setInterval(QString(argv[4]).toInt());
    auto* window = new MainWindow(QString::fromLocal8Bit(argv[2]));
    QTimer::singleShot(0, window, [window, picture = QString::fromLocal8Bit(argv[3])] {
        Document* doc = window->getDocument();
        doc->createMedia(doc->getScene(-1), picture, MediaType::image, "", "");
        Scene* added = doc->createScene();
        added->setLabel(QString::fromUtf8("Depois da queda"));
        doc->createMedia(added, "", MediaType::text, "",
                         QString::fromUtf8("Escrito depois do último salvamento"));
        doc->setModified(true);
        std::printf("%s\n--end--\n", describe(doc).toUtf8().constData());
        std::fflush(stdout);
    });
    return app.exec();
}

} // namespace

// Work is never lost: a modified project is copied aside while the program runs, a killed
// program's copy is offered back at the next start, and a save that fails keeps the old file.
class TestRecovery : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    QTemporaryDir* temp = nullptr;

    // A project saved with the program's own save at temp/aula, with one picture.
    QString savedProject() {
        doc->newProject();
        const QString picture = MediaFixtures::makeImage(temp->path(), "antes.png", QSize(8, 8));
        doc->createMedia(doc->getScene(-1), picture, MediaType::image, "", "");
        doc->createMedia(doc->getScene(-1), "", MediaType::text, "", "Primeiro texto");
        OperationsFile operations(doc);
        operations.makeProject(temp->path() + "/aula");
        operations.saveProject();
        return temp->path() + "/aula/aula.svproj";
    }

private slots:
    void init() {
        doc = Document::instance();
        temp = new QTemporaryDir();
        Recovery::setInterval(200);
    }
    void cleanup() {
        Recovery::setInterval(0);
        doc->newProject();
        delete temp;
        QDir(Recovery::rootFolder()).removeRecursively();
    }

    // A program killed with SIGKILL after its copy was written: the next start asks, recovers
    // the same model as modified, and a save writes it into the original project.
    void killedProgramIsOffered() {
        const QString file = savedProject();
        doc->newProject();
        const QString picture =
            MediaFixtures::makeImage(temp->path(), "nova.png", QSize(6, 5), QColor(0, 90, 200));
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), {"--helper", file, picture, "300"});
        QVERIFY(program.waitForStarted());
        QByteArray out;
        QTRY_VERIFY_WITH_TIMEOUT(
            (out += program.readAllStandardOutput()).contains("--end--") && anyCopy(), 60000);
        program.kill();
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::CrashExit);
        const QString expected = QString::fromUtf8(out.left(out.indexOf("\n--end--")));

        ModalAnswerer answerer;
        answerer.answer("Recuperar");
        auto* window = new MainWindow(QString());
        QVERIFY(answerer.waitAllAnswered(20000));
        QCOMPARE(answerer.last().title, QString("Recuperar projeto"));
        QVERIFY2(
            QRegularExpression(QString::fromUtf8("^O Selvorá foi fechado sem salvar o projeto "
                                                 "\"aula.svproj\".\nUma cópia foi guardada "
                                                 "automaticamente em \\d\\d/\\d\\d/\\d{4}, às "
                                                 "\\d\\d:\\d\\d.\n\nGostaria de recuperá-la\\?\n$"))
                .match(answerer.last().text)
                .hasMatch(),
            qPrintable(answerer.last().text));
        QCOMPARE(describe(doc), expected);
        QVERIFY(doc->isModified());
        QCOMPARE(window->windowTitle(), file);

        // Save goes to the original project without asking; the copy goes with it.
        auto* project = window->findChild<Project*>();
        doc->saveProject();
        QVERIFY(QTest::qWaitFor([&] { return !project->getProgressDialog()->isVisible(); }, 20000));
        QCOMPARE(answerer.seen().size(), 1);
        QTRY_VERIFY(!doc->isModified());
        QTRY_VERIFY(!anyCopy());
        doc->loadProject(file);
        QCOMPARE(describe(doc), expected);
        doc->setModified(false);
        delete window;
    }

    // A copy whose program is gone and that the user discards, or that a later save of the
    // project made old, is removed; only the first asks.
    void copyDiscardedOrOutdated_data() {
        QTest::addColumn<bool>("savedLater");
        QTest::newRow("Descartar") << false;
        QTest::newRow("project saved after the copy") << true;
    }
    void copyDiscardedOrOutdated() {
        QFETCH(bool, savedLater);
        const QString file = savedProject();
        QString orphan;
        {
            Recovery running(doc);
            doc->setModified(true);
            QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(running.copyFile()).isFile(), 5000);
            // What a killed program leaves: its folder, without a lock held.
            orphan = Recovery::rootFolder() + "/orphan";
            QDir().mkpath(orphan);
            for (const char* name : {"/projeto.svproj", "/estado.json"})
                QVERIFY(QFile::copy(QFileInfo(running.copyFile()).path() + name, orphan + name));
            doc->setModified(false);
        }
        if (savedLater) {
            QFile project(file);
            QVERIFY(project.open(QIODevice::ReadWrite));
            QVERIFY(project.setFileTime(QDateTime::currentDateTime().addSecs(5),
                                        QFileDevice::FileModificationTime));
        }
        ModalAnswerer answerer;
        if (!savedLater)
            answerer.answer("Descartar");
        const QString before = describe(doc);
        Recovery next(doc);
        QTRY_VERIFY(!QFileInfo::exists(orphan));
        QCOMPARE(answerer.seen().size(), savedLater ? 0 : 1);
        QCOMPARE(describe(doc), before);
        QVERIFY(!doc->isModified());
    }

    // The save writes beside the old file and renames: a folder gone mid-save or a write that
    // fails half-way leaves the old file whole, nothing beside it, and the project modified.
    void failedSaveKeepsOldFile_data() {
        QTest::addColumn<QString>("failure");
        QTest::newRow("folder removed") << "folder";
        QTest::newRow("write fails") << "write";
    }
    void failedSaveKeepsOldFile() {
        QFETCH(QString, failure);
        const QString file = savedProject();
        const QByteArray before = MediaFixtures::contents(file);
        const QStringList folder = entries(temp->path() + "/aula");
        Project project(doc);
        Scene* added = doc->createScene();
        added->setLabel("Nova cena");
        doc->setModified(true);
        QString kept = temp->path() + "/aula";
        QMetaObject::Connection hook;
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        if (failure == "folder") {
            kept = temp->path() + "/movida";
            // The text medium is rendered on the worker's way to the file: move the folder then.
            hook = connect(doc, &Document::generateImage, [this] {
                QDir().rename(temp->path() + "/aula", temp->path() + "/movida");
            });
        } else if (failure == "write") {
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit small = limit;
            small.rlim_cur = 100;
            setrlimit(RLIMIT_FSIZE, &small);
        }
        ModalAnswerer answerer;
        answerer.answer("OK");
        doc->saveProject();
        const bool ended =
            QTest::qWaitFor([&] { return !project.getProgressDialog()->isVisible(); }, 20000);
        setrlimit(RLIMIT_FSIZE, &limit);
        disconnect(hook);
        QVERIFY(ended);
        QVERIFY(answerer.waitAllAnswered());

        QCOMPARE(entries(kept), folder);
        const QString keptFile = kept + "/aula.svproj";
        QCOMPARE(MediaFixtures::contents(keptFile), before);
        QVERIFY(doc->isModified());
        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("Você não tem permissão para salvar o arquivo <b>\"%1\"</b>.")
                     .arg(file));
    }
};

int main(int argc, char** argv) {
    if (argc == 5 && qstrcmp(argv[1], "--helper") == 0)
        return helperMain(argc, argv);
    selvora::test::TestEnvironment environment;
    QApplication app(argc, argv);
    environment.start();
    TestRecovery tc;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_recovery.moc"
