// Publishing packs the project folder with the zip program, run without a shell: the archive's
// name and contents, the exclusions, the progress and the report, for plain names and for names
// that a shell would have run as commands.
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"
#include "project/Project.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"
#include "support/UrlCatcher.h"

#include <QDialog>
#include <QDirIterator>
#include <QProcess>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTemporaryDir>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::project::OperationsFile;
using selvora::project::Project;
using selvora::test::MediaFixtures;
using selvora::test::ModalAnswerer;
using selvora::test::UrlCatcher;

namespace {
const char* const kLeftovers[] = {"velho.html", "velho.ncl", "dados.db",
                                  "copia.bak",  ".DS_Store", "medias/images/fundo.html"};
const QString kFailure = QString::fromUtf8("<h2>Erro de conexão</h2><p>Sua conexão com a "
                                           "internet está muito lenta. Tente publicar mais tarde.");

bool touch(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write("x") == 1;
}
} // namespace

class TestPublish : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    Project* project = nullptr;
    QTemporaryDir* temp = nullptr;
    QByteArray path;

    // A saved project at temp/<name>, modified again, with former exports and leftovers in it.
    QString prepare(const QString& name, bool withMedia) {
        const QString folder = temp->path() + "/" + name;
        OperationsFile operations(doc);
        if (!operations.makeProject(folder))
            return QString();
        if (withMedia) {
            const QString picture = MediaFixtures::makeImage(temp->path(), "foto.png", QSize(8, 8));
            doc->createMedia(doc->getScene(-1), picture, Definitions::kMediaType::image, "", "");
        }
        operations.saveProject();
        for (const char* leftover : kLeftovers) {
            if (!touch(folder + "/" + leftover))
                return QString();
        }
        if (!touch(folder + "/" + name + ".svproj~") || !touch(folder + "/notas.txt"))
            return QString();
        doc->setModified(true); // publishing saves first
        return folder;
    }
    bool waitIdle() {
        QDialog* dialog = project->getProgressDialog();
        return QTest::qWaitFor([dialog] { return !dialog->isVisible(); }, 60000);
    }
    static QStringList listing(const QString& archive) {
        QProcess unzip;
        unzip.start("unzip", {"-Z1", archive});
        if (!unzip.waitForFinished(30000) || unzip.exitCode() != 0)
            return {"unzip failed: " + QString::fromLocal8Bit(unzip.readAllStandardError())};
        QStringList names =
            QString::fromUtf8(unzip.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
        names.sort();
        return names;
    }

private slots:
    void initTestCase() { path = qgetenv("PATH"); }
    void init() {
        qputenv("PATH", path);
        qunsetenv("SELVORA_PORTAL_URL");
        doc = Document::instance();
        doc->newProject();
        project = new Project(doc);
        temp = new QTemporaryDir();
    }
    void cleanup() {
        QVERIFY(waitIdle());
        delete project;
        doc->setModified(false);
        doc->newProject();
        delete temp;
        qputenv("PATH", path);
    }

    void publishNames_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("withMedia");
        QTest::addRow("blanks") << QString::fromUtf8("aula de ciências") << true;
        QTest::addRow("quotes") << "aula \"dupla\" e 'simples'" << true;
        QTest::addRow("semicolons") << "aula; touch marcador; rm -rf ~" << true;
        QTest::addRow("command substitution") << "$(touch marcador)" << true;
        QTest::addRow("like an option") << "-TT=touch marcador" << true;
        QTest::addRow("no media") << "vazia" << false;
    }
    void publishNames() {
        QFETCH(QString, name);
        QFETCH(bool, withMedia);
        const QString folder = prepare(name, withMedia);
        QVERIFY(!folder.isEmpty());
        qputenv("SELVORA_PORTAL_URL", "http://portal.example/compor");
        UrlCatcher urls;
        ModalAnswerer answerer;
        answerer.answer("OK");
        QSignalSpy bar(project->getProgressDialog()->findChild<QProgressBar*>(),
                       &QProgressBar::valueChanged);
        doc->publishProject();
        QVERIFY(answerer.waitAllAnswered(60000));
        QVERIFY(waitIdle());

        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("<h2>Projeto compactado.</h2><p>Acesse a pasta do seu projeto "
                                   "e faça a submissão do arquivo <b>%1.zip</b> para o portal de "
                                   "Videoaula da RNP.")
                     .arg(name.toHtmlEscaped()));
        QCOMPARE(urls.opened(), QList<QUrl>{QUrl("http://portal.example/compor")});
        QCOMPARE(bar.value(bar.size() - 1).value(0).toInt(), 100);

        QStringList expected = {name + ".svproj", "notas.txt",     "medias/",      "medias/images/",
                                "medias/videos/", "medias/texts/", "medias/forms/"};
        if (withMedia) {
            const Media* media = doc->getScene(-1)->getAllMedias().first();
            expected << "medias/images/" + QFileInfo(media->getPathProject()).fileName();
        }
        expected.sort();
        QCOMPARE(listing(folder + "/" + name + ".svproj.zip"), expected);

        // Nothing the name spelt ran.
        for (const QString& place : {temp->path(), QDir::currentPath(), QDir::homePath()}) {
            QDirIterator files(place, {"marcador"}, QDir::Files | QDir::Hidden,
                               QDirIterator::Subdirectories);
            QVERIFY2(!files.hasNext(), qPrintable(place));
        }
    }

    // A packer that is missing or fails gets the one failure box; a save that fails first stops
    // the publishing after its own box. The progress goes away in every case.
    void publishFailures_data() {
        QTest::addColumn<int>("failure"); // 0 zip missing, 1 zip fails, 2 the save fails
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::addRow("zip missing") << 0 << QString::fromUtf8("Publicação para Web") << kFailure;
        QTest::addRow("zip fails") << 1 << QString::fromUtf8("Publicação para Web") << kFailure;
        QTest::addRow("save fails") << 2 << QString("Erro")
                                    << QString::fromUtf8("Você não tem permissão para ler o "
                                                         "arquivo <b>\"%1/sumida.png\"</b>.");
    }
    void publishFailures() {
        QFETCH(int, failure);
        QFETCH(QString, title);
        QFETCH(QString, text);
        const QString folder = prepare("aula", true);
        QVERIFY(!folder.isEmpty());
        if (failure == 0) {
            QVERIFY(QDir().mkpath(temp->path() + "/vazio"));
            qputenv("PATH", (temp->path() + "/vazio").toUtf8());
        } else if (failure == 1) {
            // The archive's place is taken by a folder: zip cannot write it.
            QVERIFY(QDir().mkpath(folder + "/aula.svproj.zip/dentro"));
        } else {
            const QString gone = MediaFixtures::makeImage(temp->path(), "sumida.png", QSize(8, 8));
            doc->createMedia(doc->getScene(-1), gone, Definitions::kMediaType::image, "", "");
            QVERIFY(QFile::remove(gone));
        }
        qputenv("SELVORA_PORTAL_URL", "http://portal.example/compor");
        UrlCatcher urls;
        ModalAnswerer answerer;
        answerer.answer("OK");
        doc->publishProject();
        QVERIFY(answerer.waitAllAnswered(60000));
        QVERIFY(waitIdle());
        QCOMPARE(answerer.seen().size(), 1);
        QCOMPARE(answerer.last().title, title);
        QCOMPARE(answerer.last().text, QString(text).replace("%1", temp->path()));
        QVERIFY(urls.opened().isEmpty());
        QCOMPARE(QFileInfo(folder + "/aula.svproj.zip").isFile(), false);
    }
};

SELVORA_TEST_MAIN(TestPublish)
#include "tst_publish.moc"
