// Builds the demo lesson of examples/ through the model, as a user would with the menus, and
// saves it with the program's own save. Needs a display (the text and shape pictures are drawn
// by the canvas):
//
//     xvfb-run -a -s "-screen 0 1600x900x24" selvora_makelesson <folder of the lesson>
#include "app/Definitions.h"
#include "app/MainWindow.h"
#include "app/OrganisationInfo.h"
#include "app/Resources.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "project/OperationsFile.h"
#include "project/Project.h"
#include "wizards/Quiz.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>

#include <cmath>
#include <functional>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

QTextStream err(stderr);

// Runs the event loop until the condition holds or the time is out.
bool waitFor(const std::function<bool()>& done, int ms) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > ms)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    return true;
}

// A sun over a blue sky.
QString drawSun(const QString& folder) {
    QImage image(640, 360, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, 360);
    sky.setColorAt(0, QColor(90, 170, 240));
    sky.setColorAt(1, QColor(200, 230, 255));
    p.fillRect(image.rect(), sky);
    p.setPen(QPen(QColor(255, 190, 0), 10, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 12; ++i) {
        const double a = i * M_PI / 6;
        p.drawLine(QPointF(320 + 95 * std::cos(a), 180 + 95 * std::sin(a)),
                   QPointF(320 + 140 * std::cos(a), 180 + 140 * std::sin(a)));
    }
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 210, 40));
    p.drawEllipse(QPointF(320, 180), 75, 75);
    p.end();
    const QString path = folder + "/sol.png";
    image.save(path);
    return path;
}

// A green leaf on light ground.
QString drawLeaf(const QString& folder) {
    QImage image(480, 480, QImage::Format_RGB32);
    image.fill(QColor(245, 250, 235));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QPainterPath leaf;
    leaf.moveTo(80, 400);
    leaf.cubicTo(80, 150, 250, 60, 420, 60);
    leaf.cubicTo(420, 250, 330, 400, 80, 400);
    p.setPen(QPen(QColor(40, 110, 40), 6));
    p.setBrush(QColor(70, 170, 70));
    p.drawPath(leaf);
    p.drawLine(QPointF(80, 400), QPointF(380, 100));
    p.end();
    const QString path = folder + "/folha.jpg";
    image.save(path, "JPG", 90);
    return path;
}

// Puts a medium where the lesson wants it, from second 0 on.
void place(Document* doc, Scene* scene, Media* media, double left, double top, double width,
           double height, const QHash<QString, QString>& look = {}) {
    QHash<QString, QString> properties = look;
    properties.insert("left", QString::number(left));
    properties.insert("top", QString::number(top));
    properties.insert("width", QString::number(width));
    properties.insert("height", QString::number(height));
    media->setProperties(properties);
    doc->createSync(scene, media->getId(), true, SyncType::set, 0, media->getProperties(), -1);
}

Media* text(Document* doc, Scene* scene, const QString& wording, const QString& label) {
    Media* media = doc->createMedia(scene, "", MediaType::text, "", wording);
    media->setLabel(label);
    return media;
}

Media* shape(Document* doc, Scene* scene, Definitions::kShapeType type, const QString& wording,
             const QString& label) {
    Media* media =
        doc->createMedia(scene, "", MediaType::shape, QString::number(int(type)), wording);
    media->setLabel(label);
    return media;
}

void build(QWidget* window, Document* doc, const QString& pictures) {
    const QString sun = drawSun(pictures);
    const QString leaf = drawLeaf(pictures);
    const QHash<QString, QString> title{{"fontSize", "26"}, {"colorFont", "#1d3b6f"}};
    const QHash<QString, QString> body{{"fontSize", "16"}, {"colorFont", "#222222"}};

    // Scene 1: the question, over a short film; after 8 seconds the lesson goes on by itself.
    Scene* opening = doc->getScene(-1);
    opening->setLabel("Abertura");
    opening->setTotalTime(12);
    Media* video = doc->createMedia(opening, QString(SELVORA_SOURCE_DIR "/tests/data/clip.mp4"),
                                    MediaType::video, "", "");
    video->setLabel(QString::fromUtf8("Filme de abertura"));
    Media* question =
        text(doc, opening, QString::fromUtf8("Como as plantas se alimentam?"), "Pergunta");
    place(doc, opening, question, 5, 4, 90, 16, title);
    Media* sunIcon = doc->createMedia(opening, sun, MediaType::image, "", "");
    sunIcon->setLabel("Sol pequeno");
    place(doc, opening, sunIcon, 76, 70, 20, 25);
    Media* badge = shape(doc, opening, Definitions::kShapeType::rounded_rect,
                         QString::fromUtf8("Aula 1"), "Selo");
    place(doc, opening, badge, 4, 78, 16, 14, {{"colorFill", "#2e8b57"}, {"colorFont", "#ffffff"}});

    // Scene 2: light; a button (click, or the red key) leads on.
    Scene* light = doc->createScene();
    light->setLabel("A luz do Sol");
    light->setTotalTime(30);
    Media* sky = doc->createMedia(light, sun, MediaType::image, "", "");
    sky->setLabel(QString::fromUtf8("Céu com Sol"));
    place(doc, light, sky, 3, 20, 50, 50);
    Media* explain =
        text(doc, light,
             QString::fromUtf8("As folhas captam a luz do Sol e, com água e gás carbônico, "
                               "produzem o seu próprio alimento: é a fotossíntese."),
             QString::fromUtf8("Explicação"));
    place(doc, light, explain, 56, 20, 40, 50, body);
    Media* next = shape(doc, light, Definitions::kShapeType::arrow_right,
                        QString::fromUtf8("Continuar"), QString::fromUtf8("Botão continuar"));
    place(doc, light, next, 74, 76, 22, 16, {{"colorFill", "#e67e22"}, {"colorFont", "#ffffff"}});

    // Scene 3: what to remember.
    Scene* summary = doc->createScene();
    summary->setLabel("Para lembrar");
    summary->setTotalTime(20);
    Media* green = doc->createMedia(summary, leaf, MediaType::image, "", "");
    green->setLabel("Folha");
    place(doc, summary, green, 6, 12, 35, 62);
    Media* remember =
        text(doc, summary, QString::fromUtf8("Luz + água + gás carbônico → açúcar + oxigênio"),
             "Resumo");
    place(doc, summary, remember, 45, 30, 50, 30, body);

    // The automatic link: at second 8 the opening goes to the second scene.
    doc->createSync(opening, -1, true, SyncType::goTo, 8,
                    {{"link", QString::number(light->getId())}, {"timeEvent", "0"}}, -1);
    // The interactive link: the button, by a click or the red key, goes to the third scene.
    doc->createSync(light, next->getId(), true, SyncType::select, 0,
                    {{"link", QString::number(summary->getId())},
                     {"timeEvent", "0"},
                     {"key", QString::number(int(Definitions::kButtonType::RED))},
                     {"url", ""}},
                    -1);

    // Then a quiz of two questions, made by the wizard's own code; the summary leads to it when
    // its time is over.
    Scene* quizStart = doc->createScene();
    doc->createSync(summary, -1, true, SyncType::goTo, 20,
                    {{"link", QString::number(quizStart->getId())}, {"timeEvent", "0"}}, -1);
    selvora::wizards::Quiz wizard(doc, quizStart, window);
    wizard.fill({{QString::fromUtf8("O que as folhas captam para produzir o alimento?"),
                  {QString::fromUtf8("A luz do Sol"), QString::fromUtf8("O vento"),
                   QString::fromUtf8("O som")},
                  1},
                 {QString::fromUtf8("Que gás a planta libera na fotossíntese?"),
                  {QString::fromUtf8("Gás carbônico"), QString::fromUtf8("Oxigênio"),
                   QString::fromUtf8("Fumaça")},
                  2}},
                "00:00:30");
    wizard.createQuiz();
    Scene* end = wizard.getFinalScene();
    end->setLabel("Fim");
    Media* bye = text(doc, end, QString::fromUtf8("Fim da aula. Até a próxima!"), "Despedida");
    QHash<QString, QString> centred = title;
    centred.insert("textAlignment", QString::number(int(Definitions::kTextAlign::center)));
    place(doc, end, bye, 10, 35, 80, 30, centred);
    doc->setCurrentScene(opening->getId(), true);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    // Nothing of the team member's settings or copies is read or written.
    QStandardPaths::setTestModeEnabled(true);
    selvora::initResources();
    QCoreApplication::setOrganizationName(selvora::OrganisationInfo::name());
    QCoreApplication::setApplicationVersion(selvora::OrganisationInfo::version());
    Document::registerMetaTypes();
    if (argc != 2) {
        err << "uso: selvora_makelesson <pasta da aula>\n";
        return 2;
    }
    const QString folder = QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath();
    const QString name = QFileInfo(folder).fileName();
    const QString file = folder + "/" + name + ".svproj";
    if (QFileInfo::exists(folder)) {
        // Only a lesson this tool made is replaced.
        if (!QFileInfo(file).isFile()) {
            err << folder << " existe e não é uma aula\n";
            return 1;
        }
        QDir(folder).removeRecursively();
    }

    QTemporaryDir pictures;
    auto* window = new selvora::MainWindow(QString());
    Document* doc = window->getDocument();
    build(window, doc, pictures.path());

    // The program's own save: the folder named, then the save on its worker thread.
    selvora::project::OperationsFile(doc).makeProject(folder);
    auto* project = window->findChild<selvora::project::Project*>();
    doc->saveProject();
    if (!waitFor([&] { return !project->getProgressDialog()->isVisible(); }, 60000)) {
        err << "a gravação não terminou\n";
        return 1;
    }
    // The text and shape pictures are drawn on this thread after the worker asked for them.
    waitFor([] { return false; }, 500);

    doc->loadProject(file);
    const int scenes = doc->getCountScenes();
    doc->setModified(false);
    // Three scenes, two questions, the feedback and the end.
    if (scenes != 7) {
        err << file << ": " << scenes << " cenas lidas\n";
        return 1;
    }
    QTextStream(stdout) << file << "\n";
    delete window;
    return 0;
}
