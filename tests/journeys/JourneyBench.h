#ifndef SELVORA_TESTS_JOURNEYBENCH_H
#define SELVORA_TESTS_JOURNEYBENCH_H

#include "app/Definitions.h"
#include "app/MainWindow.h"
#include "app/Translations.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "libraryView/LayerList.h"
#include "libraryView/LibraryView.h"
#include "libraryView/SceneMediaItem.h"
#include "slideView/SlideListTree.h"
#include "slideView/SlideListTreeRoot.h"
#include "slideView/SlideView.h"
#include "spatialview/RegionItem.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "spatialview/TextEdit.h"
#include "spatialview/TextItem.h"
#include "support/MediaFixtures.h"
#include "support/MenuPicker.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"
#include "support/UrlCatcher.h"
#include "support/ViewInput.h"
#include "support/WindowBench.h"
#include "temporalView/TemporalView.h"
#include "wizards/Quiz.h"
#include "wizards/QuizItem.h"
#include "wizards/QuizView.h"
#include "wizards/TemplateWizard.h"

#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QGraphicsView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMediaPlayer>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSlider>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <QWizard>

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

namespace journey {

QString text(const QRectF& r) {
    return QString("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

// Percent strings round the pixels: a picture and its model agree within one pixel.
bool near(const QRectF& a, const QRectF& b) {
    return qAbs(a.x() - b.x()) <= 1 && qAbs(a.y() - b.y()) <= 1 &&
           qAbs(a.width() - b.width()) <= 1 && qAbs(a.height() - b.height()) <= 1;
}

// The box of a media or a region, in pixels of the canvas.
template <typename Box> QRectF pixels(const Box* box) {
    const double w = Definitions::getViewWidth();
    const double h = Definitions::getViewHeight();
    return QRectF(box->getLeftPx(w), box->getTopPx(h), box->getWidthPx(w), box->getHeightPx(h));
}

QRectF placed(const SpatialResizingMedia* item) {
    return QRectF(item->scenePos(), item->getRect().size());
}

const QString kWording = QString::fromUtf8("Olá, turma");
const int kTotal = 20;
const QList<int> kSeconds = {3, 5, 10, 12};

} // namespace journey

using namespace journey;

// What the journeys share: the window, the steps that name themselves in every failure, and
// the gestures a user makes (menus, tool bar, file dialogs, canvas, time strip, wizards).
class JourneyBench : public QObject {
protected:
    std::unique_ptr<WindowBench> bench;
    QTemporaryDir files;
    QString step_;
    QString picturePath;
    QString projectPath;
    QStringList before; // the scene's looks before it was saved

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

    // Each media of the scene at each chosen second, read after seeking with the strip: its
    // box, layer and visibility, and whether the canvas shows it where the model holds it.
    QStringList looks() {
        QStringList all;
        for (int second : kSeconds) {
            seek(second);
            if (QTest::currentTestFailed())
                return all;
            for (Media* m : scene()->getAllMedias()) {
                const SpatialResizingMedia* it = item(m);
                all << QString("%1 s, %2: %3 layer %4 z %5%6%7")
                           .arg(second)
                           .arg(m->getLabel(), text(pixels(m)), m->getLayer())
                           .arg(it ? it->zValue() : -1)
                           .arg(it && it->isVisible() ? " shown" : "")
                           .arg(it && near(placed(it), pixels(m)) ? "" : " elsewhere");
            }
        }
        return all;
    }
    void sameAsBefore() {
        const QStringList now = looks();
        if (QTest::currentTestFailed())
            return;
        for (int i = 0; i < qMax(now.size(), before.size()); ++i)
            STEP_VERIFY(now.value(i) == before.value(i),
                        "'" + now.value(i) + "' was '" + before.value(i) + "'");
    }
    // The media in front of the others at the current second.
    QString front() const {
        QString label;
        qreal z = -1e9;
        for (const Media* m : scene()->getAllMedias())
            if (const SpatialResizingMedia* it = item(m))
                if (it->isVisible() && it->zValue() > z) {
                    z = it->zValue();
                    label = m->getLabel();
                }
        return label;
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
        tree->scrollToItem(tree->topLevelItem(row)); // as the user scrolls to it
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

    // ---------------------------------------------------------------- layout, quiz, export

    // What the file manager does: enter, move and drop the files at a point of the canvas.
    bool dropFiles(const QStringList& paths, const QPointF& scenePos) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        data.setUrls(urls);
        const QPoint at = view()->mapFromScene(scenePos);
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view()->viewport(), &enter);
        QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view()->viewport(), &move);
        QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view()->viewport(), &dropped);
        settle();
        return dropped.isAccepted();
    }
    Scene* labelled(const QString& label) const {
        for (Scene* each : scenes())
            if (each->getLabel() == label)
                return each;
        return nullptr;
    }
    // The answer of a question scene that leads to the feedback's slot of a right answer.
    static Media* rightAnswer(Scene* question, const Scene* feedback, int slot) {
        for (Media* m : question->getAllMedias())
            for (const document::Sync* sync : question->getAllSyncsMedia(m->getId(), true))
                if (sync->getType() == Definitions::kSyncType::select &&
                    sync->getLink() == QString::number(feedback->getId()) &&
                    sync->getTimeEvent() == QString::number(slot))
                    return m;
        return nullptr;
    }
    void clickWizard(QWizard* wizard, QWizard::WizardButton which, int page) {
        QAbstractButton* button = wizard->button(which);
        STEP_VERIFY(button && button->isVisible() && button->isEnabled(),
                    QString("no enabled button %1 on the page %2 of the wizard")
                        .arg(button ? button->text() : QString::number(which))
                        .arg(wizard->currentId()));
        QTest::mouseClick(button, Qt::LeftButton);
        if (page >= 0)
            STEP_TRY(
                wizard->currentId() == page,
                QString("the wizard shows page %1, not %2").arg(wizard->currentId()).arg(page));
    }
    // The picture of a feedback page, chosen by a click on its preview.
    void choosePicture(wizards::Quiz* quiz, QGraphicsScene* preview, const QString& path) {
        ModalAnswerer answerer;
        answerer.answerFileDialog(path);
        QGraphicsView* shown = preview->views().value(0);
        STEP_VERIFY(shown, "the page has no preview");
        ViewInput::click(shown, preview->sceneRect().center());
        STEP_DO(answerFile(answerer, "Escolha um arquivo"));
        QApplication::setActiveWindow(quiz);
    }
    // The work of a save, an export or a publishing ends with its thread, and its progress with
    // it.
    void waitIdle(const QString& what) {
        STEP_TRY(
            [] {
                for (QWidget* top : QApplication::topLevelWidgets())
                    if (qobject_cast<QDialog*>(top) && top->isVisible() &&
                        top->findChild<QProgressBar*>())
                        return false;
                return true;
            }(),
            "the progress of the " + what + " stayed on screen");
    }
    QString exportedPage() const {
        return QDir(bench->document()->getProjectDirectory())
            .filePath(QFileInfo(bench->document()->getProjectName()).baseName() + ".html");
    }
};

#endif
