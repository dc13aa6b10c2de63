#include "app/TimeText.h"
#include "buffer/Buffer.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "support/MenuPicker.h"
#include "support/ModalAnswerer.h"
#include "support/PictureProbe.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"
#include "support/WindowBench.h"
#include "temporalView/MarkerItem.h"
#include "temporalView/TemporalView.h"

#include <QGraphicsView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

#include <memory>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
using document::Sync;
using temporalView::TemporalView;
using SyncType = Definitions::kSyncType;

// The strip under the canvas on a scene of 30 s holding one shape: start at 0, set at 10, stop
// at 20, and a goto at 15.
class TestTemporalView : public QObject {
    Q_OBJECT
private:
    document::Document* doc = nullptr;
    Scene* scene = nullptr;
    Media* media = nullptr;
    std::unique_ptr<QWidget> window;
    TemporalView* view = nullptr;

    template <typename T> T* part(const char* name) const { return view->findChild<T*>(name); }
    QLineEdit* edit(const QString& which) const {
        return part<QLineEdit>(which == "total" ? "totalTimeEdit" : "currentTimeEdit");
    }
    QGraphicsView* bar() const { return part<QGraphicsView>("markersView"); }
    Sync* syncOf(SyncType type, int target = -2) const {
        const int id = target == -2 ? media->getId() : target;
        return type == SyncType::goTo ? scene->getAllSyncs(SyncType::goTo).value(0)
                                      : scene->getSync(type, id, true);
    }
    MarkerItem* markerOf(const Sync* sync, bool mediaLane) const {
        for (MarkerItem* marker : mediaLane ? view->getMediaMarkers() : view->getSceneMarkers()) {
            if (marker->getSync() == sync)
                return marker;
        }
        return nullptr;
    }
    // A point inside a marker's head (the start's is a triangle to the left), in bar
    // coordinates.
    static QPointF centre(const MarkerItem* marker) {
        const bool start = marker->getMarkerType() == SyncType::start;
        return marker->mapToScene(marker->getRect().topLeft() + QPointF(start ? 4.5 : 7.5, 9.5));
    }
    void typeInto(const QString& which, const QString& digits) {
        QLineEdit* target = edit(which);
        target->setFocus();
        target->setCursorPosition(0);
        WindowBench::type(digits, target);
        WindowBench::key(Qt::Key_Return, Qt::NoModifier, target);
    }

private slots:
    void init() {
        doc = document::Document::instance();
        doc->newProject();
        scene = doc->getScene(-1);
        window.reset(new QWidget);
        view = new TemporalView(doc, window.get());
        window->show();
        QApplication::setActiveWindow(window.get());
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        scene->setTotalTime(30);
        media = doc->createMedia(scene, "", Definitions::kMediaType::shape, "0", "", -1);
        QVERIFY(media);
        doc->createSync(scene, media->getId(), true, SyncType::set, 10, {{"left", "40"}}, -1);
        doc->createSync(scene, media->getId(), true, SyncType::stop, 20, -1);
        doc->createSync(scene, -1, true, SyncType::goTo, 15, {{"link", "0"}}, -1);
    }
    void cleanup() {
        if (Scene* current = doc->getScene(-1))
            current->pauseScene();
        window.reset();
    }

    void playNeedsAMediaUnlessPlaying() {
        auto* play = part<QPushButton>("playButton");
        scene->removeMedia(media->getId());
        QVERIFY(!play->isEnabled());
        scene->playScene();
        QVERIFY(play->isEnabled());
    }

    void seekButtons_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("expected");
        QTest::newRow("forward from 15") << 15 << "seekForwardButton" << 20;
    }
    void seekButtons() {
        QFETCH(int, from);
        QFETCH(QString, button);
        QFETCH(int, expected);
        scene->setCurrentTime(from, false);
        QTest::mouseClick(part<QPushButton>(qPrintable(button)), Qt::LeftButton);
        QCOMPARE(scene->getCurrentTime(), expected);
        QCOMPARE(edit("current")->text(), TimeText::timeString(expected));
        scene->setCurrentTime(30, false);
        QVERIFY(!part<QPushButton>("seekForwardButton")->isEnabled());
    }

    void typedTimes_data() {
        QTest::addColumn<QString>("which");
        QTest::addColumn<QString>("digits");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("total");
        QTest::addColumn<QString>("text"); // of the box, empty when none opens
        const QString past = "A cena \"Cena 1\" possui um tempo total de \"00:00:30\". O tempo "
                             "atual não pode ser maior que o tempo total.";
        const QString drop = "A mudança do tempo total da cena \"Cena 1\" fará com que os "
                             "eventos que ocorrem do instante \"00:00:12\" até \"00:00:30\" "
                             "sejam excluídos. Deseja prosseguir com essa operação?\n";
        auto row = [](const char* name, const char* which, const char* digits, const char* answer,
                      int current, int total, const QString& text) {
            QTest::newRow(name) << which << digits << answer << current << total << text;
        };
        row("current past total", "current", "000100", "OK", 5, 30, past);
        row("fields over 59", "total", "009000", "", 5, 5400, "");
        row("total 99:99:99", "total", "999999", "OK", 5, 30,
            "O tempo total da cena \"Cena 1\" não pode passar de \"99:59:59\".");
        row("lower, accepted", "total", "000012", "Sim", 5, 12, drop);
        row("under current", "total", "000003", "Sim", 3, 3,
            QString(drop).replace("00:00:12", "00:00:03"));
    }
    void typedTimes() {
        QFETCH(QString, which);
        QFETCH(QString, digits);
        QFETCH(QString, answer);
        QFETCH(int, current);
        QFETCH(int, total);
        QFETCH(QString, text);
        scene->setCurrentTime(5, false);
        ModalAnswerer boxes;
        if (!answer.isEmpty())
            boxes.answer(answer);
        typeInto(which, digits);
        QVERIFY(boxes.waitAllAnswered());
        QCOMPARE(boxes.last().text, text);
        QCOMPARE(scene->getCurrentTime(), current);
        QCOMPARE(scene->getTotalTime(), total);
        QCOMPARE(edit("total")->text(), TimeText::timeString(total));
        // Accepting the drop takes the set and the stop, never the start of the media.
        const bool dropped = answer == "Sim";
        QCOMPARE(scene->getAllSyncs().size(), dropped && total < 10 ? 1 : dropped ? 2 : 4);
        QVERIFY(syncOf(SyncType::start));
    }

    // The mask takes blanks: a field left empty counts as 0, and the edit then shows the time
    // the scene took.
    void halfTypedTime() {
        scene->setTotalTime(90);
        scene->setCurrentTime(25, false);
        QLineEdit* target = edit("current");
        target->setFocus();
        target->setCursorPosition(8);
        WindowBench::key(Qt::Key_Backspace, Qt::NoModifier, target); // 00:00:2_
        edit("total")->setFocus();
        QTRY_COMPARE(scene->getCurrentTime(), 2);
        QCOMPARE(target->text(), QString("00:00:02"));
    }

    void markersPlacedByTimeAndDrawnByKind_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("time");
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<QString>("tip");
        QTest::newRow("start") << int(SyncType::start) << 0 << QColor(0, 180, 0)
                               << "Início - 00:00:00";
        QTest::newRow("set") << int(SyncType::set) << 10 << QColor(0, 128, 255)
                             << "Alterações - 00:00:10";
        QTest::newRow("stop") << int(SyncType::stop) << 20 << QColor(255, 17, 17)
                              << "Fim - 00:00:20";
        QTest::newRow("goto") << int(SyncType::goTo) << 15 << QColor(Qt::yellow) << "Ir Para";
    }
    void markersPlacedByTimeAndDrawnByKind() {
        QFETCH(int, type);
        QFETCH(int, time);
        QFETCH(QColor, colour);
        QFETCH(QString, tip);
        MarkerItem* marker = markerOf(syncOf(SyncType(type)), false);
        QVERIFY(marker);
        const double width = Definitions::getTemporalViewWidth() - 12;
        QCOMPARE(marker->getRect().x(), time * width / 30);
        QCOMPARE(marker->toolTip(), tip);
        QCOMPARE(view->getMediaMarkers().size(), 3); // the goto is no media's
        const QImage picture = PictureProbe::grab(bar()->viewport());
        const QPoint at = bar()->mapFromScene(centre(marker));
        QVERIFY2(PictureProbe::share(picture, QRect(at - QPoint(1, 1), QSize(3, 3)), colour, 40) >
                     0.5,
                 qPrintable(PictureProbe::keep(picture, QTest::currentDataTag())));
    }

    void dragWithinBoundsUndoneInOneStep_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("mediaLane");
        QTest::addColumn<double>("seconds"); // how far the hand goes
        QTest::addColumn<int>("expected");
        const int set = int(SyncType::set);
        QTest::newRow("up to the stop") << set << true << 25.0 << 19;
        QTest::newRow("lower lane fixed") << set << false << 5.0 << 10;
        QTest::newRow("stop to the bar end") << int(SyncType::stop) << true << 20.0 << 30;
    }
    void dragWithinBoundsUndoneInOneStep() {
        QFETCH(int, type);
        QFETCH(bool, mediaLane);
        QFETCH(double, seconds);
        QFETCH(int, expected);
        buffer::Buffer history(doc, window.get());
        Sync* sync = syncOf(SyncType(type));
        const int before = sync->getTime();
        const int records = history.getRecords().size();
        const QPointF from = centre(markerOf(sync, mediaLane));
        const double second = (Definitions::getTemporalViewWidth() - 12) / 30;
        ViewInput::drag(bar(), from, from + QPointF(seconds * second, 0));
        QCOMPARE(sync->getTime(), expected);
        // The marker was replaced, at the new time; the scene went there.
        QCOMPARE(markerOf(sync, false)->getTime(), expected);
        QTRY_COMPARE(scene->getCurrentTime(), expected);
        QCOMPARE(history.getRecords().size(), records + (expected != before ? 1 : 0));
        doc->undoAction();
        QCOMPARE(sync->getTime(), before);
        QCOMPARE(markerOf(sync, false)->getTime(), before);
    }

    void contextMenu_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("start") << int(SyncType::start) << false;
        QTest::newRow("set") << int(SyncType::set) << true;
    }
    void contextMenu() {
        QFETCH(int, type);
        QFETCH(bool, enabled);
        // Another media with a set at the same second goes with it.
        Media* other = doc->createMedia(scene, "", Definitions::kMediaType::shape, "0", "", -1);
        Sync* sync = syncOf(SyncType(type));
        if (enabled)
            QVERIFY(doc->createSync(scene, other->getId(), true, SyncType::set, sync->getTime(),
                                    {{"left", "7"}}, -1));
        const int count = scene->getAllSyncs().size();
        MenuPicker picker;
        if (enabled)
            picker.choose({"Deletar"});
        else
            picker.dismiss();
        const QPointF at = centre(markerOf(sync, false));
        ViewInput::press(bar(), at, Qt::RightButton);
        ViewInput::release(bar(), at, Qt::RightButton);
        QVERIFY(picker.waitDone());
        QCOMPARE(picker.seen().value(0).enabled.value("Deletar"), enabled);
        QCOMPARE(scene->getAllSyncs().size(), enabled ? count - 2 : count);
        QCOMPARE(view->getSceneMarkers().size(), scene->getAllSyncs().size());
    }

    void markerNeverOutlivesItsSync() {
        Sync* jump = syncOf(SyncType::goTo);
        const QPointF at = centre(markerOf(jump, false));
        scene->removeSyncObject(jump);
        QCOMPARE(view->getSceneMarkers().size(), 3);
        ViewInput::drag(bar(), at, at + QPointF(40, 0));
        QCoreApplication::processEvents(); // the marker taken off goes by deleteLater
        QCOMPARE(scene->getAllSyncs().size(), 3);
        // Removing the media takes its markers from both lanes.
        scene->removeMedia(media->getId());
        QVERIFY(view->getSceneMarkers().isEmpty());
        QVERIFY(view->getMediaMarkers().isEmpty());
    }

    // Every automatic start has the id 1: the drop removes the later media and its start
    // object, and the earlier media keeps its own.
    void droppingTheEndTakesTheLaterMediaOnly() {
        scene->setCurrentTime(25, false);
        QVERIFY(doc->createMedia(scene, "", Definitions::kMediaType::shape, "0", "", -1));
        ModalAnswerer boxes;
        boxes.answer("Sim");
        typeInto("total", "000022");
        QVERIFY(boxes.waitAllAnswered());
        QCOMPARE(scene->countMedia(), 1);
        QVERIFY(scene->hasMedia(media->getId()) && syncOf(SyncType::start));
        QCOMPARE(scene->getAllSyncs().size(), 4); // the first media's start, set, stop; the goto
        QCOMPARE(scene->getCurrentTime(), 22);
    }

    void followsTheCurrentScene() {
        Scene* second = doc->createScene(-1);
        second->setTotalTime(7);
        doc->setCurrentScene(second->getId(), true);
        QCOMPARE(part<QLabel>("sceneLabel")->text(), second->getLabel());
        QVERIFY(view->getSceneMarkers().isEmpty());
        scene->setTotalTime(50); // the old scene no longer reaches the strip
        QCOMPARE(edit("total")->text(), QString("00:00:07"));
        doc->setCurrentScene(scene->getId(), true);
        media->setLabel("Caixa");
        QCOMPARE(part<QLabel>("mediaLabel")->text(), QString("Caixa"));
    }

    void sliderSeeks() {
        auto* slider = part<QSlider>("timeSlider");
        scene->stopScene();
        slider->setSliderDown(true);
        slider->setSliderPosition(12);
        QVERIFY(!scene->isEnabledAddSync());
        slider->setSliderDown(false);
        QVERIFY(scene->isEnabledAddSync());
        QCOMPARE(scene->getCurrentTime(), 12);
        // A click in the groove goes to the time under the pointer.
        const int x = slider->width() * 3 / 4;
        QTest::mouseClick(slider, Qt::LeftButton, Qt::NoModifier, QPoint(x, slider->height() / 2));
        QCOMPARE(scene->getCurrentTime(), 30 * x / slider->width());
    }
};

SELVORA_TEST_MAIN(TestTemporalView)
#include "tst_temporalview.moc"
