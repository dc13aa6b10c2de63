#include "app/Definitions.h"
#include "app/MainWindow.h"
#include "app/TimeText.h"
#include "app/Translations.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "libraryView/LayerList.h"
#include "libraryView/LibraryView.h"
#include "libraryView/SceneMediaItem.h"
#include "slideView/SlideListTree.h"
#include "slideView/SlideView.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "spatialview/TextEdit.h"
#include "spatialview/TextItem.h"
#include "support/MediaFixtures.h"
#include "support/MenuPicker.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"
#include "support/WindowBench.h"
#include "temporalView/TemporalView.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QGraphicsView>
#include <QLineEdit>
#include <QMap>
#include <QMediaPlayer>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSlider>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <memory>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
using libraryView::LayerList;
using libraryView::SceneMediaItem;
using spatialview::SpatialResizingMedia;
using spatialview::SpatialView;

// Every check names the step of the journey it belongs to, so that a failure reads as what the
// user was doing and what differed.
#define STEP_VERIFY(condition, difference)                                                         \
    QVERIFY2((condition), qPrintable(step_ + QStringLiteral(": ") + (difference)))
#define STEP_TRY(condition, difference)                                                            \
    QTRY_VERIFY2_WITH_TIMEOUT((condition),                                                         \
                              qPrintable(step_ + QStringLiteral(": ") + (difference)), 10000)
// A helper that failed has already said why; the journey stops there.
#define STEP_DO(call)                                                                              \
    do {                                                                                           \
        call;                                                                                      \
        if (QTest::currentTestFailed())                                                            \
            return;                                                                                \
    } while (false)

namespace {

QString text(const QRectF& r) {
    return QString("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

// Percent strings round the pixels: a picture and its model agree within one pixel.
bool near(const QRectF& a, const QRectF& b) {
    return qAbs(a.x() - b.x()) <= 1 && qAbs(a.y() - b.y()) <= 1 &&
           qAbs(a.width() - b.width()) <= 1 && qAbs(a.height() - b.height()) <= 1;
}

QRectF pixels(const Media* media) {
    const double w = Definitions::getViewWidth();
    const double h = Definitions::getViewHeight();
    return QRectF(media->getLeftPx(w), media->getTopPx(h), media->getWidthPx(w),
                  media->getHeightPx(h));
}

QRectF placed(const SpatialResizingMedia* item) {
    return QRectF(item->scenePos(), item->getRect().size());
}

// What one media is at one second: in the model and on the canvas.
struct Look {
    QRectF model;
    QRectF canvas;
    QString layer;
    qreal z = 0;
    bool visible = false;
};

const QString kWording = QString::fromUtf8("Olá, turma");
const int kTotal = 20;
const QList<int> kSeconds = {0, 3, 5, 8, 10, 12, 16};

} // namespace

// A teacher's first lesson, made through the window only: menus, tool bar, file dialogs, the
// mouse on the canvas, the time strip and the layer list. The model is only read, to check.
class TestJourneys : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<WindowBench> bench;
    QTemporaryDir files;
    QString step_;
    QString picturePath;
    QString projectPath;
    QMap<int, QMap<QString, Look>> before; // second, media label
    QMap<int, QStringList> rowsBefore;     // second, the layer rows top to bottom
    QMap<int, QStringList> rowsSeen;       // the same, as the last reading found them

    Scene* scene() const { return bench->document()->getScene(-1); }
    SpatialView* canvas() const {
        return bench->panel<spatialview::SpatialGroupView>()->getCurrentView();
    }
    QGraphicsView* view() const { return canvas()->getGraphicsView(); }
    QSlider* strip() const {
        return bench->panel<temporalView::TemporalView>()->findChild<QSlider*>("timeSlider");
    }
    LayerList* layers() const { return bench->panel<libraryView::LibraryView>()->getLayerList(); }
    Media* media(const QString& label) const {
        for (Media* each : scene()->getAllMedias())
            if (each->getLabel() == label)
                return each;
        return nullptr;
    }
    SpatialResizingMedia* item(const Media* media) const {
        return media ? canvas()->getItem(SpatialView::mediaKey(media->getId())) : nullptr;
    }
    // The labels of the layer rows, top to bottom, as the list shows them.
    QStringList layerRows() const {
        QStringList rows;
        for (int r = 0; r < layers()->count(); ++r)
            if (!layers()->item(r)->isHidden())
                rows << layers()->item(r)->text();
        return rows;
    }
    static void settle() { QCoreApplication::sendPostedEvents(); }

    void step(const QString& name) { step_ = name; }

    // With SELVORA_SHOTS_DIR set, the screen under the window (menus and dialogs over it
    // included) is kept as a picture named after the step.
    void shot(const QString& name) {
        const QString folder = qEnvironmentVariable("SELVORA_SHOTS_DIR");
        if (folder.isEmpty())
            return;
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        QGuiApplication::sync();
        const QRect area = bench->window()->frameGeometry();
        const QImage picture = QGuiApplication::primaryScreen()
                                   ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
                                   .toImage()
                                   .scaledToWidth(1200, Qt::SmoothTransformation);
        QDir().mkpath(folder);
        QVERIFY2(picture.save(QDir(folder).filePath(name + ".png")), qPrintable(name));
    }

    // A click on the title of a menu of the menu bar; true when it opened.
    bool openMenu(const QString& title) {
        QMenuBar* bar = bench->window()->menuBar();
        for (QAction* action : bar->actions()) {
            if (MenuPicker::plain(action->text()) != title)
                continue;
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
            return QTest::qWaitFor([] {
                auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                return menu && menu->isVisible();
            });
        }
        return false;
    }
    void pickMenu(const QString& title, const QString& entry, const QString& shotName = {}) {
        STEP_VERIFY(openMenu(title), "the menu " + title + " did not open");
        if (!shotName.isEmpty())
            STEP_DO(shot(shotName));
        MenuPicker picker;
        picker.choose({entry});
        STEP_VERIFY(picker.waitDone(15000) && picker.chosen(),
                    "no enabled entry " + entry + " in the menu " + title);
    }
    // The shape palette, while it is on screen.
    QMenu* palette() const {
        for (QMenu* menu : bench->window()->findChildren<QMenu*>())
            if (menu->isVisible() && menu->title() == "Inserir Formas")
                return menu;
        return nullptr;
    }
    QWidget* toolButton(const QString& text) const {
        for (QToolBar* bar : bench->panels<QToolBar>())
            for (QAction* action : bar->actions())
                if (MenuPicker::plain(action->text()) == text)
                    return bar->widgetForAction(action);
        return nullptr;
    }
    void pressTool(const QString& text) {
        QWidget* button = toolButton(text);
        STEP_VERIFY(button && button->isEnabled(), "no enabled tool button " + text);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    // Answers the file dialog that the action opens, checking its title.
    void answerFile(ModalAnswerer& answerer, const QString& title) {
        STEP_VERIFY(answerer.waitAllAnswered(15000), "the file dialog " + title + " never came");
        const ModalAnswerer::Seen seen = answerer.last();
        STEP_VERIFY(seen.className == "QFileDialog" && seen.title == title && !seen.unexpected,
                    QString("a %1 titled '%2' instead of the file dialog '%3'")
                        .arg(seen.className, seen.title, title));
        // With no window manager, nothing gives the window back its activation.
        QApplication::setActiveWindow(bench->window());
        STEP_TRY(bench->window()->isActiveWindow(), "the window did not come back to the front");
    }

    // A click in the groove of the time strip at that second.
    void seek(int second) {
        QSlider* slider = strip();
        const int total = slider->maximum();
        STEP_VERIFY(second < total,
                    QString("no second %1 in a strip of %2").arg(second).arg(total));
        const int x = (2 * second + 1) * slider->width() / (2 * total);
        QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(x, slider->height() / 2));
        settle();
        STEP_TRY(scene()->getCurrentTime() == second, QString("the strip went to second %1, not %2")
                                                          .arg(scene()->getCurrentTime())
                                                          .arg(second));
        auto* shown =
            bench->panel<temporalView::TemporalView>()->findChild<QLineEdit*>("currentTimeEdit");
        STEP_VERIFY(shown->text() == TimeText::timeString(second),
                    "the time field shows " + shown->text());
    }

    // The mouse takes the item by its middle (moving) or by its lower right corner (resizing).
    void handle(const QString& label, const QPointF& by, bool corner) {
        Media* m = media(label);
        SpatialResizingMedia* it = item(m);
        STEP_VERIFY(it && it->isVisible(), label + " is not on the canvas");
        const QRectF start = placed(it);
        ViewInput::click(view(), start.center()); // the focus shows the handles
        settle();
        STEP_TRY(it->hasFocus(), label + " did not take the focus from a click");
        const QPointF from = corner ? start.bottomRight() - QPointF(3, 3) : start.center();
        ViewInput::drag(view(), from, from + by);
        settle();
        const QRectF expected =
            corner ? start.adjusted(0, 0, by.x(), by.y()) : start.translated(by);
        STEP_VERIFY(near(placed(it), expected),
                    label + " shows at " + text(placed(it)) + ", expected " + text(expected));
        STEP_VERIFY(near(pixels(m), expected),
                    label + " holds " + text(pixels(m)) + ", expected " + text(expected));
    }

    // New media come in the middle of the canvas: each is carried to a place of its own.
    void moveTo(const QString& label, const QPointF& topLeft) {
        const SpatialResizingMedia* it = item(media(label));
        STEP_VERIFY(it, label + " is not on the canvas");
        handle(label, topLeft - it->scenePos(), false);
    }

    // Each media of the scene at each chosen second, read after seeking with the strip.
    QMap<int, QMap<QString, Look>> looks() {
        QMap<int, QMap<QString, Look>> all;
        rowsSeen.clear();
        for (int second : kSeconds) {
            seek(second);
            if (QTest::currentTestFailed())
                return all;
            rowsSeen.insert(second, layerRows());
            for (Media* m : scene()->getAllMedias()) {
                Look look;
                look.model = pixels(m);
                look.layer = m->getLayer();
                if (SpatialResizingMedia* it = item(m)) {
                    look.canvas = placed(it);
                    look.z = it->zValue();
                    look.visible = it->isVisible();
                }
                all[second].insert(m->getLabel(), look);
            }
        }
        return all;
    }
    void sameAsBefore() {
        const QMap<int, QMap<QString, Look>> now = looks();
        if (QTest::currentTestFailed())
            return;
        for (int second : kSeconds) {
            const QMap<QString, Look>& was = before[second];
            const QMap<QString, Look>& is = now[second];
            STEP_VERIFY(
                was.keys() == is.keys(),
                QString("at second %1 the scene holds %2 instead of %3")
                    .arg(second)
                    .arg(QStringList(is.keys()).join(", "), QStringList(was.keys()).join(", ")));
            for (const QString& label : was.keys()) {
                const Look& a = was[label];
                const Look& b = is[label];
                const QString where = QString("second %1, %2: ").arg(second).arg(label);
                STEP_VERIFY(near(a.model, b.model),
                            where + "model " + text(b.model) + " was " + text(a.model));
                STEP_VERIFY(near(a.canvas, b.canvas),
                            where + "canvas " + text(b.canvas) + " was " + text(a.canvas));
                STEP_VERIFY(a.layer == b.layer && a.z == b.z,
                            where + QString("layer %1 (z %2) was %3 (z %4)")
                                        .arg(b.layer)
                                        .arg(b.z)
                                        .arg(a.layer)
                                        .arg(a.z));
                STEP_VERIFY(a.visible == b.visible, where + "visibility changed");
            }
            STEP_VERIFY(rowsSeen[second] == rowsBefore[second],
                        QString("at second %1 the layer rows are %2, were %3")
                            .arg(second)
                            .arg(rowsSeen[second].join(", "), rowsBefore[second].join(", ")));
        }
    }
    // The labels in the order of their layers, the front one first.
    static QStringList frontToBack(const QMap<QString, Look>& at) {
        QStringList labels = at.keys();
        std::sort(labels.begin(), labels.end(),
                  [&](const QString& a, const QString& b) { return at[a].z > at[b].z; });
        return labels;
    }

    // ---------------------------------------------------------------- scenes and links

    slideView::SlideListTree* sceneRows() const {
        return bench->panel<slideView::SlideView>()->getTree();
    }
    QList<Scene*> scenes() const { return bench->document()->getSceneAllInOrder(); }
    // The whole lesson as text: each scene with its time, media and syncs.
    QString lesson() const {
        QStringList parts;
        for (Scene* each : scenes()) {
            QStringList syncs;
            for (const document::Sync* sync : each->getAllSyncs())
                syncs << QString("%1@%2>%3/%4/%5")
                             .arg(int(sync->getType()))
                             .arg(sync->getTime())
                             .arg(sync->getLink(), sync->getTimeEvent(), sync->getKey());
            syncs.sort();
            QStringList medias;
            for (Media* m : each->getAllMedias())
                medias << m->getLabel();
            parts << QString("%1 (%2 s) [%3] {%4}")
                         .arg(each->getLabel())
                         .arg(each->getTotalTime())
                         .arg(medias.join(", "), syncs.join(" "));
        }
        return parts.join("; ");
    }
    // A click on the scene's row makes it current.
    void pickScene(int row) {
        slideView::SlideListTree* tree = sceneRows();
        STEP_VERIFY(row < tree->topLevelItemCount(), QString("no scene row %1").arg(row));
        const QRect rect = tree->visualItemRect(tree->topLevelItem(row));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, rect.topLeft() + QPoint(2, 2));
        STEP_TRY(scene() == scenes().value(row),
                 QString("the row %1 did not make its scene current").arg(row));
        settle();
    }
    void typeTotal(int seconds) {
        auto* total =
            bench->panel<temporalView::TemporalView>()->findChild<QLineEdit*>("totalTimeEdit");
        QTest::mouseClick(total, Qt::LeftButton);
        WindowBench::key(Qt::Key_Home, Qt::NoModifier, total);
        WindowBench::type(QString("0000%1").arg(seconds, 2, 10, QChar('0')), total);
        WindowBench::key(Qt::Key_Return, Qt::NoModifier, total);
        STEP_VERIFY(scene()->getTotalTime() == seconds,
                    QString("the scene lasts %1 s").arg(scene()->getTotalTime()));
    }
    // A right click on the canvas (on the media, or on its empty corner) and the entry picked.
    // Without a window manager the display may take the popup away as it opens: the user
    // would click and right-click again.
    void canvasMenu(const Media* on, const QString& entry) {
        MenuPicker picker;
        picker.choose({entry});
        const QPointF at = on ? placed(item(on)).center() : QPointF(3, 400);
        for (int attempt = 0; attempt < 5 && picker.seen().isEmpty(); ++attempt) {
            ViewInput::click(view(), at);
            settle();
            if (on)
                item(on)->setFocus(Qt::MouseFocusReason);
            else if (QGraphicsItem* focus = canvas()->getSpatialScene()->focusItem())
                focus->clearFocus();
            ViewInput::contextMenu(view(), at);
        }
        STEP_VERIFY(picker.waitDone(15000) && picker.chosen(),
                    "no enabled entry " + entry + " in the canvas menu");
    }
    // Fills the link dialog the entry opens, as the user would, and saves it.
    void linkDialog(const Media* on, const QString& entry, const QString& title,
                    const QStringList& times, const QStringList& choices,
                    const QString& shotName = {}) {
        ModalAnswerer answerer;
        answerer.answerWith([&](QWidget* dialog) {
            const QList<QLineEdit*> edits = dialog->findChildren<QLineEdit*>();
            for (int i = 0; i < times.size(); ++i)
                if (!times[i].isEmpty()) {
                    // The field is masked: the digits overwrite from its start.
                    QTest::keyClick(edits.at(i), Qt::Key_Home);
                    QTest::keyClicks(edits.at(i), QString(times[i]).remove(':'));
                }
            const QList<QComboBox*> boxes = dialog->findChildren<QComboBox*>();
            for (int i = 0; i < choices.size(); ++i)
                boxes.at(i)->setCurrentIndex(boxes.at(i)->findText(choices[i]));
            if (!shotName.isEmpty())
                shot(shotName);
            for (QPushButton* button : dialog->findChildren<QPushButton*>())
                if (button->text() == "&Salvar")
                    QTest::mouseClick(button, Qt::LeftButton);
            // Anything left open failed: given up, so that the journey goes on to say so.
            if (dialog->isVisible())
                static_cast<QDialog*>(dialog)->reject();
        });
        STEP_DO(canvasMenu(on, entry));
        STEP_VERIFY(answerer.waitAllAnswered(15000), "the dialog " + title + " never came");
        STEP_VERIFY(answerer.last().title == title,
                    "a dialog titled '" + answerer.last().title + "' instead of " + title);
        QApplication::setActiveWindow(bench->window());
    }
    Media* insertText() {
        const int count = scene()->getAllMedias().size();
        pressTool("Inserir Texto");
        if (QTest::currentTestFailed() || scene()->getAllMedias().size() != count + 1)
            return nullptr;
        return scene()->getMedia(-1);
    }
    QPushButton* playButton() const {
        return bench->panel<temporalView::TemporalView>()->findChild<QPushButton*>("playButton");
    }
    bool playing() const { return scene()->getStatusPlayer() == Definitions::kPlayerStatus::play; }
    // The tool pressed until the lesson reads as wanted (the history's buttons stay enabled):
    // the number of presses, or -1 when 25, the records the history keeps, were not enough.
    int pressUntil(const QString& tool, const QString& wanted) {
        for (int presses = 0; presses <= 25; ++presses) {
            if (lesson() == wanted)
                return presses;
            QTest::mouseClick(toolButton(tool), Qt::LeftButton);
            settle();
        }
        return -1;
    }

private slots:
    void initTestCase() {
        QVERIFY(files.isValid());
        // Qt's own dialogs in Portuguese, as the program starts them.
        Translations::install(qApp);
        picturePath = MediaFixtures::makeImage(files.path(), "mapa.png", QSize(240, 180),
                                               QColor(40, 120, 200));
        bench.reset(new WindowBench());
        QVERIFY(bench->window()->isVisible());
    }
    void cleanupTestCase() { bench.reset(); }

    void newProjectWithAScene() {
        step("Novo projeto");
        STEP_DO(pickMenu("Arquivo", "Novo"));
        STEP_VERIFY(bench->document()->getCountScenes() == 1, "the new project has no scene");
        STEP_VERIFY(bench->window()->windowTitle().startsWith(QString::fromUtf8("Sem Título")),
                    "the title is " + bench->window()->windowTitle());
        step("Tempo total");
        auto* total =
            bench->panel<temporalView::TemporalView>()->findChild<QLineEdit*>("totalTimeEdit");
        QTest::mouseClick(total, Qt::LeftButton);
        WindowBench::key(Qt::Key_Home, Qt::NoModifier, total);
        WindowBench::type(QString("0000%1").arg(kTotal), total);
        WindowBench::key(Qt::Key_Return, Qt::NoModifier, total);
        STEP_VERIFY(scene()->getTotalTime() == kTotal,
                    QString("the scene lasts %1 s").arg(scene()->getTotalTime()));
        STEP_VERIFY(strip()->maximum() == kTotal,
                    QString("the strip ends at %1").arg(strip()->maximum()));
        STEP_DO(seek(0)); // a seek pauses the scene, so that its items can be edited
        STEP_DO(shot("01-janela"));
    }

    void insertEveryKindOfMedia() {
        step("Inserir Vídeo");
        {
            ModalAnswerer answerer;
            answerer.answerFileDialog(MediaFixtures::videoPath());
            STEP_DO(pressTool("Inserir Vídeo"));
            STEP_DO(answerFile(answerer, "Escolha um arquivo"));
        }
        Media* video = scene()->getMainVideo();
        STEP_VERIFY(video, "the scene has no main video");
        STEP_TRY(item(video) && item(video)->isVisible(), "the video is not on the canvas");
        STEP_VERIFY(!toolButton("Inserir Vídeo")->isEnabled(),
                    "a second video can still be inserted");
        // The frame is edited once the player has the clip, as a user sees it come.
        STEP_TRY(canvas()->mediaPlayer() &&
                     canvas()->mediaPlayer()->mediaStatus() >= QMediaPlayer::LoadedMedia,
                 "the clip never loaded");
        const QString videoLabel = video->getLabel();
        // Half the canvas, in the lower right corner.
        STEP_DO(handle(videoLabel, QPointF(-360, -202), true));
        STEP_DO(moveTo(videoLabel, QPointF(340, 180)));

        step("Inserir Imagem");
        {
            ModalAnswerer answerer;
            answerer.answerFileDialog(picturePath);
            STEP_DO(pickMenu("Opções", "Inserir Imagem"));
            STEP_DO(answerFile(answerer, "Escolha um arquivo"));
        }
        STEP_VERIFY(scene()->getAllMedias().size() == 2,
                    QString("%1 media after the picture").arg(scene()->getAllMedias().size()));
        Media* picture = scene()->getMedia(-1);
        STEP_VERIFY(picture && picture->getType() == Definitions::kMediaType::image,
                    "the picture is not the media in hand");
        STEP_DO(moveTo(picture->getLabel(), QPointF(20, 20)));

        step("Inserir Texto");
        STEP_DO(pressTool("Inserir Texto"));
        Media* words = scene()->getMedia(-1);
        STEP_VERIFY(words && words->getType() == Definitions::kMediaType::text,
                    "the text is not the media in hand");
        auto* wording = dynamic_cast<spatialview::TextItem*>(item(words));
        STEP_VERIFY(wording, "no text item on the canvas");
        STEP_TRY(wording->getText() == "Duplo clique para editar",
                 "the new text shows '" + wording->getText() + "'");
        step("Digitar o texto");
        ViewInput::doubleClick(view(), placed(wording).center());
        QTextEdit* box = wording->getTextEdit()->textBox();
        STEP_TRY(wording->getTextEdit()->isOpened() && box->isVisible(),
                 "a double click opened no editor");
        // No window manager hands the editor the keyboard: done here as one would.
        QApplication::setActiveWindow(box->window());
        box->setFocus();
        STEP_TRY(box->hasFocus(), "the editor never took the keyboard");
        WindowBench::type(kWording, box);
        STEP_DO(shot("03-texto"));
        view()->setFocus();
        ViewInput::click(view(), QPointF(650, 60)); // the empty canvas ends the edit
        STEP_TRY(!wording->getTextEdit()->isVisible(), "the editor stayed open");
        QApplication::setActiveWindow(bench->window());
        STEP_VERIFY(words->getWording() == kWording,
                    "the model holds '" + words->getWording() + "'");
        STEP_VERIFY(wording->getText() == kWording,
                    "the canvas shows '" + wording->getText() + "'");
        STEP_DO(moveTo(words->getLabel(), QPointF(170, 20)));

        const QList<QPair<QString, QPointF>> shapes = {
            {QString::fromUtf8("Retângulo"), QPointF(20, 250)},
            {"Elipse", QPointF(160, 120)},
            {"Estrela de 5 pontas", QPointF(440, 20)}};
        for (const auto& shape : shapes) {
            step("Inserir Formas: " + shape.first);
            QCursor::setPos(view()->mapToGlobal(QPoint(60, 60)));
            STEP_DO(pressTool("Inserir Formas"));
            STEP_TRY(palette() != nullptr, "the shape palette did not open");
            if (shape.first == "Elipse")
                STEP_DO(shot("04-formas"));
            QWidget* button = nullptr;
            for (QToolBar* row : palette()->findChildren<QToolBar*>())
                for (QAction* action : row->actions())
                    if (action->text() == shape.first)
                        button = row->widgetForAction(action);
            STEP_VERIFY(button, "no " + shape.first + " in the palette");
            const int count = scene()->getAllMedias().size();
            QTest::mouseClick(button, Qt::LeftButton);
            STEP_TRY(!palette(), "the palette stayed open");
            STEP_VERIFY(scene()->getAllMedias().size() == count + 1, "no shape was inserted");
            Media* figure = scene()->getMedia(-1);
            STEP_VERIFY(figure && figure->getType() == Definitions::kMediaType::shape,
                        "the shape is not the media in hand");
            STEP_DO(moveTo(figure->getLabel(), shape.second));
        }
        STEP_DO(shot("02-midias"));
    }

    // The same items, changed at later seconds: the canvas is a function of time.
    void arrangeAtLaterSeconds() {
        step("Arrumar no tempo");
        const QList<Media*> all = scene()->getAllMediasOrderLayer();
        STEP_VERIFY(all.size() == 6, QString("%1 media in the scene").arg(all.size()));
        QMap<Definitions::kMediaType, QStringList> byType;
        for (Media* m : all)
            byType[m->getType()] << m->getLabel();
        const QString video = byType[Definitions::kMediaType::video].value(0);
        const QString picture = byType[Definitions::kMediaType::image].value(0);
        const QString words = byType[Definitions::kMediaType::text].value(0);
        QString rectangle;
        for (Media* m : all)
            if (m->getType() == Definitions::kMediaType::shape && m->getGeometry() == "0")
                rectangle = m->getLabel();

        step("Segundo 5: mover a imagem, redimensionar o retângulo");
        STEP_DO(seek(5));
        const QRectF pictureAtZero = pixels(media(picture));
        STEP_DO(handle(picture, QPointF(0, 100), false));
        STEP_DO(handle(rectangle, QPointF(60, 20), true));
        step("Segundo 10: mover o texto, redimensionar o vídeo");
        STEP_DO(seek(10));
        STEP_DO(handle(words, QPointF(250, 320), false));
        STEP_DO(handle(video, QPointF(-100, -60), true));
        step("Segundo 3: antes das mudanças");
        STEP_DO(seek(3));
        STEP_VERIFY(near(placed(item(media(picture))), pictureAtZero),
                    "the picture moved before second 5: " + text(placed(item(media(picture)))));

        step("Camadas: arrastar o vídeo para o topo no segundo 12");
        STEP_DO(seek(12));
        const QStringList rows = layerRows();
        STEP_VERIFY(rows.size() == 6 && rows.last() == video,
                    "the layer rows are " + rows.join(", "));
        // The bottom row is pressed and carried to the top one. Qt hands a drop only to the
        // target of a live drag, so the list gets the drag's own events, with its own payload.
        QListWidgetItem* bottom = layers()->item(layers()->count() - 1);
        QListWidgetItem* top = layers()->item(0);
        QTest::mouseClick(layers()->viewport(), Qt::LeftButton, {},
                          layers()->visualItemRect(bottom).center());
        const QPoint target(layers()->visualItemRect(top).center().x(),
                            layers()->visualItemRect(top).top() + 2);
        std::unique_ptr<QMimeData> payload(
            layers()->dragData(static_cast<SceneMediaItem*>(bottom)));
        QDragEnterEvent enter(target, Qt::MoveAction, payload.get(), Qt::LeftButton, {});
        QApplication::sendEvent(layers()->viewport(), &enter);
        QDragMoveEvent move(target, Qt::MoveAction, payload.get(), Qt::LeftButton, {});
        QApplication::sendEvent(layers()->viewport(), &move);
        QDropEvent drop(target, Qt::MoveAction, payload.get(), Qt::LeftButton, {});
        QApplication::sendEvent(layers()->viewport(), &drop);
        STEP_VERIFY(drop.isAccepted(), "the layer list refused the drop");
        STEP_VERIFY(layerRows().value(0) == video, "the layer rows are " + layerRows().join(", "));
        STEP_DO(shot("05-camadas"));

        step("Conferir a cena");
        before = looks();
        if (QTest::currentTestFailed())
            return;
        rowsBefore = rowsSeen;
        STEP_VERIFY(frontToBack(before[12]).value(0) == video,
                    "at 12 the front item is " + frontToBack(before[12]).value(0));
        STEP_VERIFY(frontToBack(before[10]).value(0) != video,
                    "at 10 the video is already in front");
        STEP_VERIFY(!near(before[10][words].canvas, before[8][words].canvas),
                    "the text did not move at second 10");
        STEP_VERIFY(!near(before[5][rectangle].canvas, before[3][rectangle].canvas),
                    "the rectangle did not grow at second 5");
    }

    void saveAndOpenAgain() {
        step("Salvar");
        projectPath = QDir(files.path()).filePath("aula");
        {
            ModalAnswerer answerer;
            answerer.answerWith([this](QWidget* widget) {
                auto* dialog = qobject_cast<QFileDialog*>(widget);
                if (!dialog)
                    return;
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText(projectPath);
                shot("06-salvar");
                QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
            });
            STEP_DO(pickMenu("Arquivo", "Salvar"));
            STEP_DO(answerFile(answerer, "Salvar Projeto como"));
        }
        const QString file = projectPath + "/aula.svproj";
        STEP_TRY(QFileInfo::exists(file) && !bench->document()->isModified(),
                 "the project was not saved as " + file);
        STEP_TRY(
            [] {
                for (QWidget* top : QApplication::topLevelWidgets())
                    if (qobject_cast<QDialog*>(top) && top->isVisible() &&
                        top->findChild<QProgressBar*>())
                        return false;
                return true;
            }(),
            "the progress of the save stayed on screen");
        STEP_VERIFY(bench->window()->windowTitle().endsWith("aula.svproj"),
                    "the title is " + bench->window()->windowTitle());

        step("Fechar (Novo)");
        {
            ModalAnswerer answerer; // nothing to ask: the project is saved
            STEP_DO(pickMenu("Arquivo", "Novo"));
            STEP_VERIFY(answerer.seen().isEmpty(), "Novo asked: " + answerer.last().text);
        }
        STEP_VERIFY(scene()->getAllMedias().isEmpty(), "the new project is not empty");

        step("Abrir");
        {
            ModalAnswerer answerer;
            answerer.answerFileDialog(file);
            STEP_DO(pickMenu("Arquivo", "Abrir"));
            STEP_DO(answerFile(answerer, "Escolha o projeto"));
        }
        STEP_TRY(scene() && scene()->getAllMedias().size() == 6, "the project did not open");
        STEP_DO(sameAsBefore());
        const Media* words = nullptr;
        for (Media* m : scene()->getAllMedias())
            if (m->getType() == Definitions::kMediaType::text)
                words = m;
        STEP_VERIFY(words && words->getWording() == kWording, "the typed text was lost");

        step("Novo, e abrir pela lista de recentes");
        STEP_DO(pickMenu("Arquivo", "Novo"));
        STEP_VERIFY(scene()->getAllMedias().isEmpty(), "the new project is not empty");
        STEP_DO(pickMenu("Arquivo", "1 aula.svproj", "07-recentes"));
        STEP_TRY(scene() && scene()->getAllMedias().size() == 6,
                 "the project did not open from the recent list");
        STEP_DO(sameAsBefore());
        STEP_DO(seek(12));
        STEP_DO(shot("08-reaberto"));
    }
    // Three scenes linked by the canvas's context menu: by time, by a click and by a key;
    // played through, then taken back to nothing by the history and brought back again.
    void scenesLinkedByTimeClickAndKey() {
        step("Novo projeto para os elos");
        {
            ModalAnswerer answerer;
            answerer.answer(QString::fromUtf8("Não")); // the reopened lesson was not changed
            STEP_DO(pickMenu("Arquivo", "Novo"));
        }
        const QString empty = lesson();
        STEP_VERIFY(scenes().size() == 1 && scene()->getAllMedias().isEmpty(),
                    "the new project is " + empty);
        step("Adicionar Cena");
        for (int i = 0; i < 2; ++i)
            QTest::mouseClick(bench->panel<slideView::SlideView>()->getButtons().at(0),
                              Qt::LeftButton);
        STEP_TRY(scenes().size() == 3, QString("%1 scenes").arg(scenes().size()));
        const QList<Scene*> three = scenes();

        // Each scene: its time and a text to click; a link for each.
        QList<Media*> texts;
        for (int row = 0; row < 3; ++row) {
            step(QString("Cena %1: tempo e texto").arg(row + 1));
            STEP_DO(pickScene(row));
            STEP_DO(typeTotal(10));
            STEP_DO(seek(0));
            Media* words = insertText();
            STEP_VERIFY(words, "no text inserted");
            texts << words;
        }

        step(QString::fromUtf8("Cena 1: elo automático para a Cena 2 aos 00:00:01"));
        STEP_DO(pickScene(0));
        STEP_DO(linkDialog(nullptr, QString::fromUtf8("Criar Elo Automático entre Cenas"),
                           QString::fromUtf8("Elo automático da cena."), {"00:00:01", "", ""},
                           {three[1]->getLabel()}, "09-elo-automatico"));
        const QList<document::Sync*> gotos = three[0]->getAllSyncs(Definitions::kSyncType::goTo);
        STEP_VERIFY(gotos.size() == 1 && gotos[0]->getTime() == 1 &&
                        gotos[0]->getLink() == QString::number(three[1]->getId()),
                    "the scene's links are " + lesson());

        step(QString::fromUtf8("Cena 2: elo interativo (clique) para a Cena 1 no instante 3"));
        STEP_DO(pickScene(1));
        STEP_DO(linkDialog(texts[1], QString::fromUtf8("Criar Elo Interativo entre Cenas"),
                           QString::fromUtf8("Elo interativo da mídia."), {"00:00:03"},
                           {three[0]->getLabel()}, "10-elo-interativo"));
        const document::Sync* click =
            three[1]->getSync(Definitions::kSyncType::select, texts[1]->getId(), true);
        STEP_VERIFY(click && click->getLink() == QString::number(three[0]->getId()) &&
                        click->getTimeEvent() == "3" && click->getKey().isEmpty(),
                    "the click link is " + lesson());

        step(QString::fromUtf8("Cena 1: elo pela tecla Vermelho para a Cena 3"));
        STEP_DO(pickScene(0));
        STEP_DO(linkDialog(texts[0], QString::fromUtf8("Criar Elo Interativo entre Cenas"),
                           QString::fromUtf8("Elo interativo da mídia."), {},
                           {three[2]->getLabel(), "Vermelho"}));
        const document::Sync* key =
            three[0]->getSync(Definitions::kSyncType::select, texts[0]->getId(), true);
        STEP_VERIFY(key && key->getLink() == QString::number(three[2]->getId()) &&
                        key->getKey() == QString::number(Qt::Key_1),
                    "the key link is " + lesson());
        const QString full = lesson();

        step(QString::fromUtf8("Tocar: o elo automático leva à Cena 2"));
        STEP_DO(seek(0));
        QTest::mouseClick(playButton(), Qt::LeftButton);
        STEP_TRY(
            scene() == three[1] && playing(),
            QString("playing %1 instead of %2").arg(scene()->getLabel(), three[1]->getLabel()));
        step(QString::fromUtf8("Tocar: um clique no texto volta à Cena 1 no segundo 3"));
        STEP_TRY(item(texts[1]) && item(texts[1])->isVisible(), "the text is not shown");
        ViewInput::click(view(), placed(item(texts[1])).center());
        STEP_TRY(
            scene() == three[0] && playing(),
            QString("playing %1 instead of %2").arg(scene()->getLabel(), three[0]->getLabel()));
        STEP_VERIFY(scene()->getCurrentTime() >= 3,
                    QString("the scene came at second %1").arg(scene()->getCurrentTime()));
        step(QString::fromUtf8("Tocar: a tecla Vermelho leva à Cena 3"));
        WindowBench::key(Qt::Key_1, Qt::NoModifier, view());
        STEP_TRY(
            scene() == three[2] && playing(),
            QString("playing %1 instead of %2").arg(scene()->getLabel(), three[2]->getLabel()));
        QTest::mouseClick(playButton(), Qt::LeftButton);
        STEP_TRY(!playing(), "the scene did not pause");
        STEP_VERIFY(lesson() == full, "playing changed the lesson: " + lesson());

        // Eleven records in all, well within the 25 the history keeps.
        step("Desfazer tudo");
        const int undone = pressUntil("Desfazer", empty);
        STEP_VERIFY(undone > 0,
                    QString("25 undos left the lesson as %1, not %2").arg(lesson(), empty));
        QTest::mouseClick(toolButton("Desfazer"), Qt::LeftButton); // nothing more to undo
        STEP_VERIFY(lesson() == empty, "an undo too many changed the lesson: " + lesson());
        step("Refazer tudo");
        const int redone = pressUntil("Refazer", full);
        STEP_VERIFY(redone == undone, QString("%1 redos for %2 undos, the lesson is %3, not %4")
                                          .arg(redone)
                                          .arg(undone)
                                          .arg(lesson(), full));
        QTest::mouseClick(toolButton("Refazer"), Qt::LeftButton); // nothing more to redo
        STEP_VERIFY(lesson() == full, "a redo too many changed the lesson: " + lesson());
    }
};

SELVORA_TEST_MAIN(TestJourneys)
#include "tst_journeys.moc"
