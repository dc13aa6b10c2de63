// Export without the conversion service: a small lesson is exported to HTML, NCL and SCORM.
// The NCL is checked here for structure and timing; the page and the package are played in
// headless Chromium by tests/web/run.js, against the states the program's own clock gives.

#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "project/HtmlExport.h"
#include "project/NclExport.h"
#include "project/OperationsFile.h"
#include "project/QuizStructure.h"
#include "project/ScormPackage.h"
#include "project/ZipWriter.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"
#include "support/WindowBench.h"
#include "wizards/Quiz.h"

#include <QAction>
#include <QDataStream>
#include <QDialog>
#include <QDomDocument>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::document::Sync;
using selvora::project::ExportResult;
using selvora::test::MediaFixtures;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;
using Properties = QHash<QString, QString>;

namespace {

const QString kEvil = QStringLiteral("</script><script>alert(1)</script>");

Properties box(double left, double top, double width, double height, int layer) {
    return {{"left", QString::number(left)},   {"top", QString::number(top)},
            {"width", QString::number(width)}, {"height", QString::number(height)},
            {"layer", QString::number(layer)}, {"transparency", "0"}};
}

QList<QDomElement> allElements(const QDomElement& root) {
    QList<QDomElement> list{root};
    for (QDomElement child = root.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        list += allElements(child);
    return list;
}

// Runs a program with arguments (never through a shell); its output on failure.
QString run(const QString& program, const QStringList& arguments, int timeoutMs = 30000) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(timeoutMs))
        return program + QStringLiteral(" did not finish: ") + process.errorString();
    const QString output = QString::fromUtf8(process.readAll());
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 ? QString()
                                                                                   : output + " ";
}

} // namespace

class TestWebExport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void pageHoldsProjectTextsAsData();
    void nclMatchesTheTimeline();
    void scormPackageUnpacksWithItsManifest();
    void zipCopiesLargeFilesWhole();
    void lessonPlaysInTheBrowser();
    void menuMakesThePackage();

private:
    // The states of chosen seconds by the program's clock, for the browser to compare.
    QJsonArray expectedStates(const QList<QPair<int, int>>& moments);
    // A new project holding a three-question quiz made by the wizard, exported; what the
    // browser needs to play it.
    void wizardQuiz(QJsonObject* setup);

    QTemporaryDir temp_;
    QString folder_;
    ExportResult html_;
    ExportResult ncl_;
    ExportResult scorm_;
};

// Scenes in play order: 0 "Abertura" (video, sound, pictures with a click link and a RED key link,
// a text that is the quiz's right answer, a shape that shows from 1 to 3 and links to a javascript:
// address), 1 "Automática" (goto at 2 to the feedback scene), 3 "Feedback" of a one-question quiz
// (gotos at 5 and 10), 2 "Final" (a web link).
void TestWebExport::initTestCase() {
    Document* doc = Document::instance();
    QVERIFY(selvora::project::OperationsFile(doc).makeProject(temp_.path() + "/aula"));
    folder_ = doc->getProjectDirectory();
    // The save asks the canvas for the pictures of texts and shapes; here a plain picture.
    connect(doc, &Document::generateImage, this, [](Scene*, Media* media) {
        MediaFixtures::makeImage(QFileInfo(media->getPathProject()).absolutePath(),
                                 QFileInfo(media->getPathProject()).fileName(), QSize(120, 40),
                                 Qt::darkGreen);
    });
    const QString picture = MediaFixtures::makeImage(temp_.path(), "foto.png", QSize(64, 48));
    // Four seconds of silence; the save stores a sound beside the project folder.
    const QString sound = temp_.path() + "/som.wav";
    {
        QFile wav(sound);
        QVERIFY(wav.open(QIODevice::WriteOnly));
        QDataStream out(&wav);
        out.setByteOrder(QDataStream::LittleEndian);
        const quint32 samples = 4 * 8000;
        out.writeRawData("RIFF", 4);
        out << quint32(36 + samples);
        out.writeRawData("WAVEfmt ", 8);
        out << quint32(16) << quint16(1) << quint16(1) << quint32(8000) << quint32(8000)
            << quint16(1) << quint16(8);
        out.writeRawData("data", 4);
        out << samples;
        wav.write(QByteArray(int(samples), char(0x80)));
    }

    doc->clearDocument();
    doc->setProjectDirectory(folder_);
    doc->setProjectName("aula.svproj");
    doc->setTitle(kEvil);
    Scene* opening = doc->loadScene(0, 0, 0, 20, "Abertura");
    Scene* automatic = doc->loadScene(1, 1, 0, 10, "Automática");
    Scene* final = doc->loadScene(2, 3, 0, 5, "Final");
    Scene* feedback = doc->loadScene(3, 2, 0, 10, "Feedback");
    const auto media = [doc](Scene* scene, int id, MediaType type, const QString& path) {
        doc->loadMedia(scene, path, type, id, type == MediaType::text ? kEvil : QString(),
                       {{"wording", "Olá"}, {"hover", id == 1 ? "0" : ""}}, QString());
    };
    const auto sync = [doc](Scene* scene, int target, SyncType type, int time,
                            const Properties& properties) {
        doc->loadSync(scene, target, true, type, time, properties);
    };
    media(opening, 0, MediaType::video, MediaFixtures::videoPath());
    sync(opening, 0, SyncType::start, 0, box(50, 0, 50, 50, 1));
    media(opening, 1, MediaType::image, picture);
    sync(opening, 1, SyncType::start, 0, box(10, 10, 20, 20, 2));
    sync(opening, 1, SyncType::set, 2, box(30, 40, 25, 20, 5));
    sync(opening, 1, SyncType::select, 0, {{"link", "2"}, {"timeEvent", "0"}});
    media(opening, 2, MediaType::text, QString());
    sync(opening, 2, SyncType::start, 0, box(60, 70, 30, 10, 3));
    sync(opening, 2, SyncType::select, 0, {{"link", "3"}, {"timeEvent", "0"}});
    media(opening, 3, MediaType::shape, QString());
    sync(opening, 3, SyncType::start, 1, box(5, 60, 16.66, 20, 4));
    sync(opening, 3, SyncType::stop, 3, {});
    sync(opening, 3, SyncType::select, 0, {{"url", "javascript:alert(document.title)"}});
    media(opening, 4, MediaType::image, picture);
    sync(opening, 4, SyncType::start, 0, box(0, 80, 10, 10, 6));
    sync(opening, 4, SyncType::select, 0, {{"key", "49"}, {"link", "1"}, {"timeEvent", "0"}});
    media(opening, 8, MediaType::audio, sound);
    sync(opening, 8, SyncType::start, 0, {});
    media(automatic, 5, MediaType::image, picture);
    sync(automatic, 5, SyncType::start, 0, box(40, 40, 20, 20, 1));
    doc->loadSync(automatic, -1, true, SyncType::goTo, 2, {{"link", "3"}, {"timeEvent", "0"}});
    media(feedback, 6, MediaType::image, picture);
    sync(feedback, 6, SyncType::start, 0, box(0, 0, 30, 30, 1));
    doc->loadSync(feedback, -1, true, SyncType::goTo, 5, {{"link", "2"}, {"timeEvent", "0"}});
    doc->loadSync(feedback, -1, true, SyncType::goTo, 10, {{"link", "0"}, {"timeEvent", "0"}});
    media(final, 7, MediaType::image, picture);
    sync(final, 7, SyncType::start, 0, box(25, 25, 50, 50, 1));
    sync(final, 7, SyncType::select, 0, {{"url", " www.exemplo.org/aula?a=1&b=2 "}});

    selvora::project::OperationsFile(doc).saveProject();
    html_ = selvora::project::HtmlExport::run(doc, folder_);
    ncl_ = selvora::project::NclExport::run(doc, folder_);
    scorm_ = selvora::project::ScormPackage::run(doc, folder_);
    QVERIFY2(html_.ok, qPrintable(html_.message));
    QVERIFY2(ncl_.ok, qPrintable(ncl_.message));
    QVERIFY2(scorm_.ok, qPrintable(scorm_.message));
    QCOMPARE(html_.message, QString("O arquivo aula.html foi criado na pasta do projeto."));
    // A project never saved has no folder to export into.
    const ExportResult nowhere = selvora::project::ScormPackage::run(doc, QString());
    QVERIFY(!nowhere.ok);
    QCOMPARE(nowhere.message, QString("A pasta do projeto não foi encontrada. Salve o projeto "
                                      "antes de exportar."));
}

void TestWebExport::pageHoldsProjectTextsAsData() {
    QFile file(html_.path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray page = file.readAll();
    // Two script elements of our own, and the project's texts only in escaped forms.
    QCOMPARE(page.count("</script>"), 2);
    QVERIFY(page.contains("<title>&lt;/script&gt;&lt;script&gt;alert(1)&lt;/script&gt;</title>"));
    QVERIFY(page.contains("\\u003c/script\\u003e\\u003cscript\\u003ealert(1)"));
    QVERIFY(page.contains("Content-Security-Policy"));
    QVERIFY(!page.contains("<link") && !page.contains("src=\"") && !page.contains("@import"));
}

void TestWebExport::nclMatchesTheTimeline() {
    QFile file(ncl_.path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QDomDocument dom;
    QString error;
    QVERIFY2(dom.setContent(&file, &error), qPrintable(error));

    // Every id once; every reference to an element of the right kind.
    QHash<QString, QDomElement> ids;
    const QList<QDomElement> all = allElements(dom.documentElement());
    for (const QDomElement& e : all) {
        if (!e.hasAttribute("id"))
            continue;
        QVERIFY2(!ids.contains(e.attribute("id")), qPrintable(e.attribute("id")));
        ids.insert(e.attribute("id"), e);
    }
    const auto kindOf = [&ids](const QString& id) { return ids.value(id).tagName(); };
    QSet<QString> linkKeys; // "scene/area begin/role/component"
    for (const QDomElement& e : all) {
        const QString tag = e.tagName();
        if (e.hasAttribute("region"))
            QCOMPARE(kindOf(e.attribute("region")), QString("region"));
        if (e.hasAttribute("descriptor"))
            QCOMPARE(kindOf(e.attribute("descriptor")), QString("descriptor"));
        if (e.hasAttribute("xconnector"))
            QCOMPARE(kindOf(e.attribute("xconnector")), QString("causalConnector"));
        if (tag == "port" || tag == "bind") {
            // A component is a child of the element that holds the port or the link.
            const QDomElement component = ids.value(e.attribute("component"));
            QVERIFY2(component.parentNode() == e.parentNode() ||
                         component.parentNode() == e.parentNode().parentNode(),
                     qPrintable(e.attribute("component")));
            if (e.hasAttribute("interface")) {
                const QDomElement anchor = ids.value(e.attribute("interface"));
                bool found = !anchor.isNull() && anchor.parentNode() == component;
                for (QDomElement p = component.firstChildElement("property"); !p.isNull();
                     p = p.nextSiblingElement("property"))
                    found = found || p.attribute("name") == e.attribute("interface");
                QVERIFY2(found, qPrintable(e.attribute("interface")));
            }
        }
        if (tag == "bind") {
            const QDomElement link = e.parentNode().toElement();
            const QDomElement connector = ids.value(link.attribute("xconnector"));
            bool hasRole = false;
            for (const QDomElement& part : allElements(connector))
                hasRole = hasRole || part.attribute("role") == e.attribute("role");
            QVERIFY2(hasRole, qPrintable(e.attribute("role")));
            const QDomElement first = link.firstChildElement("bind");
            if (link.parentNode().nodeName() == "context" && e != first)
                linkKeys.insert(link.parentNode().toElement().attribute("id") + "/" +
                                ids.value(first.attribute("interface")).attribute("begin") + "/" +
                                e.attribute("role") + "/" + e.attribute("component"));
        }
    }

    // The start, stop and set of every medium stand as links at their seconds.
    const auto expectLink = [&linkKeys](const QString& key) {
        QVERIFY2(linkKeys.contains(key), qPrintable(key));
    };
    expectLink("cena0/2s/set/m1");
    expectLink("cena0/1s/start/m3");
    expectLink("cena0/3s/stop/m3");
    QCOMPARE(linkKeys.size(), 11); // nine starts, a set of one medium, a stop
    // Three gotos, two clicks and the RED key lead from scene to scene through the body.
    QStringList jumps;
    for (QDomElement link =
             dom.documentElement().firstChildElement("body").firstChildElement("link");
         !link.isNull(); link = link.nextSiblingElement("link"))
        jumps << link.attribute("xconnector");
    jumps.sort();
    QCOMPARE(jumps, QStringList({"onBeginStopStart", "onBeginStopStart", "onBeginStopStart",
                                 "onKeySelectionStopStart", "onSelectionStopStart",
                                 "onSelectionStopStart"}));
    QVERIFY(std::any_of(all.begin(), all.end(), [](const QDomElement& e) {
        return e.attribute("name") == "keyCode" && e.attribute("value") == "RED";
    }));
    QCOMPARE(ids.value("entrada").attribute("component"), QString("cena0"));
}

void TestWebExport::scormPackageUnpacksWithItsManifest() {
    const QString into = temp_.path() + "/scorm";
    const QString failure = run("unzip", {"-oq", scorm_.path, "-d", into});
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
    QFile manifest(into + "/imsmanifest.xml");
    QVERIFY(manifest.open(QIODevice::ReadOnly));
    const QByteArray text = manifest.readAll();
    QVERIFY(text.contains("<schemaversion>1.2</schemaversion>"));
    QVERIFY(text.contains("adlcp:scormtype=\"sco\" href=\"index.html\""));
    // Every file the manifest names is in the package.
    QDomDocument dom;
    QVERIFY(dom.setContent(text));
    const QDomNodeList files = dom.elementsByTagName("file");
    // The page, the video, five pictures, a text, a shape, and the sound from beside the folder.
    QCOMPARE(files.size(), 10);
    bool soundPacked = false;
    for (int i = 0; i < files.size(); ++i) {
        const QString href = files.at(i).toElement().attribute("href");
        QVERIFY(QFileInfo(into + "/" + href).isFile());
        soundPacked = soundPacked || href == "medias/extra/1-aulaMidia_9.wav";
    }
    QVERIFY(soundPacked);
}

// A file of several copy pieces, and names that would climb out of the archive refused.
void TestWebExport::zipCopiesLargeFilesWhole() {
    QByteArray big(3 * 1024 * 1024 + 17, '\0');
    for (int i = 0; i < big.size(); ++i)
        big[i] = char((unsigned(i) * 7919u) >> 3);
    const QString source = temp_.path() + "/big.bin";
    QFile bigFile(source);
    QVERIFY(bigFile.open(QIODevice::WriteOnly) && bigFile.write(big) == big.size());
    bigFile.close();
    const QString path = temp_.path() + "/big.zip";
    QFile zipFile(path);
    QVERIFY(zipFile.open(QIODevice::WriteOnly));
    selvora::project::ZipWriter zip(&zipFile);
    QVERIFY(zip.addFile("dados/grande.bin", source));
    QVERIFY(zip.addData("ç/leia-me.txt", "olá"));
    QVERIFY(!selvora::project::ZipWriter(&zipFile).addData("../fora.txt", "x"));
    QVERIFY(!selvora::project::ZipWriter(&zipFile).addData("/raiz.txt", "x"));
    QVERIFY(zip.finish());
    zipFile.close();
    const QString failure = run("unzip", {"-tq", path});
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

QJsonArray TestWebExport::expectedStates(const QList<QPair<int, int>>& moments) {
    QJsonArray states;
    Document* doc = Document::instance();
    const double width = doc->getProjectViewWidth();
    const double height = doc->getProjectViewHeight();
    for (const auto& moment : moments) {
        Scene* scene = doc->getSceneAll().value(moment.first);
        scene->setCurrentTime(moment.second, false);
        scene->resetExecuteSyncs();
        QJsonArray media;
        const QList<Media*> all = scene->getAllMedias();
        for (const Media* m : all) {
            media.append(
                QJsonObject{{"id", m->getId()},
                            {"visible", scene->mediaActivate(m->getId(), moment.second, true)},
                            {"box", QJsonArray{m->getLeftPx(width), m->getTopPx(height),
                                               m->getWidthPx(width), m->getHeightPx(height)}}});
        }
        states.append(
            QJsonObject{{"scene", moment.first}, {"time", moment.second}, {"media", media}});
    }
    return states;
}

void TestWebExport::wizardQuiz(QJsonObject* setup) {
    Document* doc = Document::instance();
    QVERIFY(selvora::project::OperationsFile(doc).makeProject(temp_.path() + "/quiz"));
    const QString folder = doc->getProjectDirectory();
    doc->clearDocument();
    doc->setProjectDirectory(folder);
    doc->setProjectName("quiz.svproj");
    Scene* first = doc->loadScene(0, 0, 0, 0, "Início");
    selvora::wizards::Quiz wizard(doc, first, nullptr);
    wizard.fill({{"Quanto é 1 + 1?", {"2", "3", "4"}, 1},
                 {"Quanto é 2 + 2?", {"3", "4", "5"}, 2},
                 {"Quanto é 3 + 3?", {"5", "7", "6"}, 3}},
                "00:00:00");
    wizard.createQuiz();
    selvora::project::OperationsFile(doc).saveProject();
    const ExportResult scorm = selvora::project::ScormPackage::run(doc, folder);
    const QString unpacked = temp_.path() + "/quizscorm";
    QVERIFY(scorm.ok);
    QCOMPARE(run("unzip", {"-oq", scorm.path, "-d", unpacked}), QString());

    // Per question its scene, its right answer and a wrong one, told apart by the second of the
    // feedback scene their click enters.
    const Scene* feedback = doc->getScene(QStringLiteral("Feedback"));
    QJsonArray questions;
    for (int i = 1; i <= 3; ++i) {
        const Scene* scene = doc->getScene(QString("Pergunta %1").arg(i));
        QJsonObject question{{"scene", scene->getId()}};
        for (const Sync* sync : scene->getAllSyncs(SyncType::select)) {
            if (sync->getLink().toInt() == feedback->getId())
                question.insert(sync->getTimeEvent().toInt() == 5 * (i - 1) ? "right" : "wrong",
                                sync->getMediaTarget());
        }
        questions.append(question);
    }
    int pictures[2] = {-1, -1};
    for (const Media* media : feedback->getAllMedias())
        pictures[media->getLabel() == "Imagem de erro"] = media->getId();
    // The export finds the quiz by its feedback scene and the right answers that lead into it:
    // without the one of question 2 it is only a scene with gotos.
    const selvora::project::QuizStructure found = selvora::project::QuizStructure::find(doc);
    QCOMPARE(found.feedbackScene, feedback->getId());
    QCOMPARE(found.finalScene, wizard.getFinalScene()->getId());
    Scene* second = doc->getScene(questions.at(1).toObject().value("scene").toInt());
    for (Sync* sync : second->getAllSyncs(SyncType::select)) {
        if (sync->getTimeEvent() == "5")
            second->removeSyncObject(sync);
    }
    QVERIFY(!selvora::project::QuizStructure::find(doc).isValid());
    *setup = {{"scorm", unpacked + "/index.html"},
              {"feedback", feedback->getId()},
              {"final", wizard.getFinalScene()->getId()},
              {"rightPicture", pictures[0]},
              {"wrongPicture", pictures[1]},
              {"questions", questions}};
}

void TestWebExport::lessonPlaysInTheBrowser() {
    const QString web = QStringLiteral(SELVORA_SOURCE_DIR "/tests/web");
    QVERIFY2(QFileInfo(web + "/node_modules/puppeteer-core").isDir(),
             "tests/web/node_modules is missing: run scripts/install-deps.sh");
    Document* doc = Document::instance();
    // The lesson's states first: the quiz is a project of its own.
    const QJsonArray stage{doc->getProjectViewWidth(), doc->getProjectViewHeight()};
    const QJsonArray states = expectedStates({{0, 0}, {0, 1}, {0, 2}, {0, 3}, {1, 0}, {2, 0}});
    QJsonObject quiz;
    wizardQuiz(&quiz);
    if (QTest::currentTestFailed())
        return;
    const QJsonObject setup{{"page", html_.path},
                            {"scorm", temp_.path() + "/scorm/index.html"},
                            {"stage", stage},
                            {"states", states},
                            {"quiz", quiz}};
    const QString setupPath = temp_.path() + "/setup.json";
    QFile file(setupPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(setup).toJson());
    file.close();
    if (!QFileInfo(temp_.path() + "/scorm/index.html").isFile())
        scormPackageUnpacksWithItsManifest();
    const QString failure = run("node", {web + "/run.js", setupPath}, 240000);
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

// "Exportar > SCORM" on the opened project makes the package and says where it is.
void TestWebExport::menuMakesThePackage() {
    QFile::remove(scorm_.path);
    selvora::test::WindowBench bench(folder_ + "/aula.svproj");
    QAction* scorm = nullptr;
    for (QAction* action : bench.window()->findChildren<QAction*>())
        scorm = action->text() == "SCORM" ? action : scorm;
    QVERIFY(scorm);
    selvora::test::ModalAnswerer answerer;
    answerer.answerWith([](QWidget* box) { qobject_cast<QDialog*>(box)->accept(); });
    scorm->trigger();
    QVERIFY(answerer.waitAllAnswered());
    QCOMPARE(answerer.last().text,
             QString("O pacote SCORM aula-scorm.zip foi criado na pasta do projeto."));
    QVERIFY(QFileInfo(scorm_.path).size() > 0);
}

SELVORA_TEST_MAIN(TestWebExport)
#include "tst_webexport.moc"
