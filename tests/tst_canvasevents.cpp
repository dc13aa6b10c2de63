#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "support/CanvasTest.h"
#include "support/MediaFixtures.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"
#include "support/WindowBench.h"

#include <QDesktopServices>
#include <QGraphicsView>
#include <QLineEdit>
#include <QTemporaryDir>

#include <memory>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
using document::Sync;
using spatialview::SpatialResizingMedia;
using spatialview::SpatialView;
using SyncType = Definitions::kSyncType;

namespace {

QRectF placed(const SpatialResizingMedia* item) {
    return QRectF(item->scenePos(), item->getRect().size());
}

const QString kPage = QStringLiteral("http://exemplo.com.br/aula");

} // namespace

class TestCanvasEvents : public CanvasTest {
    Q_OBJECT
public slots:
    void openUrl(const QUrl& url) { opened << url; }

private:
    QList<QUrl> opened;
    Media* media = nullptr;

    QGraphicsView* view() const { return canvas()->getGraphicsView(); }
    SpatialResizingMedia* item() const { return itemOf(media); }
    int setsAt(int second) const {
        int count = 0;
        for (const Sync* sync : scene()->getAllSyncsMedia(media->getId(), true))
            count += sync->getType() == SyncType::set && sync->getTime() == second;
        return count;
    }
    // Delivers the end-of-gesture event that the item posted.
    static void settle() { QCoreApplication::sendPostedEvents(); }

private slots:
    void initTestCase() {
        QDesktopServices::setUrlHandler("http", this, "openUrl");
        QDesktopServices::setUrlHandler("https", this, "openUrl");
        QVERIFY(openBench());
    }
    void init() {
        QVERIFY(newProject());
        scene()->setTotalTime(20);
        const QString path =
            MediaFixtures::makeImage(files->path(), "a.png", QSize(120, 80), Qt::red);
        media =
            doc->createMedia(scene(), path, Definitions::kMediaType::image, QString(), QString());
        QVERIFY(media);
        QVERIFY(item());
        QTRY_VERIFY(item()->isVisible());
        opened.clear();
    }
    void cleanup() {
        if (scene())
            scene()->pauseScene();
    }
    void cleanupTestCase() {
        QDesktopServices::unsetUrlHandler("http");
        QDesktopServices::unsetUrlHandler("https");
        bench.reset();
    }

    void gestureBecomesASetAtTheSecond_data() {
        QTest::addColumn<bool>("corner");
        QTest::addColumn<QPointF>("by");
        QTest::addColumn<int>("sets");
        QTest::newRow("drag") << false << QPointF(40, 30) << 1;
        QTest::newRow("drag of one pixel") << false << QPointF(1, 1) << 0;
        QTest::newRow("click") << false << QPointF(0, 0) << 0;
        QTest::newRow("resize") << true << QPointF(30, 20) << 1;
    }
    void gestureBecomesASetAtTheSecond() {
        QFETCH(bool, corner);
        QFETCH(QPointF, by);
        QFETCH(int, sets);
        seek(7);
        const QRectF before = placed(item());
        QVERIFY(near(before, pixels(media)));
        const QPointF from = corner ? before.bottomRight() - QPointF(3, 3) : before.center();
        ViewInput::click(view(), before.center()); // focus shows the handles
        settle();
        ViewInput::drag(view(), from, from + by);
        settle();
        QCOMPARE(setsAt(7), sets);
        const QRectF after = placed(item());
        QVERIFY(near(after, pixels(media)));
        if (sets) {
            const QRectF expected =
                corner ? before.adjusted(0, 0, by.x(), by.y()) : before.translated(by);
            QVERIFY2(near(after, expected), qPrintable(QString("%1,%2 %3x%4")
                                                           .arg(after.x())
                                                           .arg(after.y())
                                                           .arg(after.width())
                                                           .arg(after.height())));
        }
        // The geometry is a function of time: before the gesture, at it and after it.
        seek(6);
        QVERIFY(near(placed(item()), before));
        seek(8);
        QVERIFY(near(placed(item()), after));
        if (!sets)
            return;
        // One gesture, one step of history.
        doc->undoAction();
        QTRY_COMPARE(setsAt(7), 0);
        QVERIFY(near(placed(item()), before));
        QVERIFY(near(pixels(media), before));
    }

    void layerAndTransparencyFollowTime_data() {
        QTest::addColumn<qreal>("layer");
        QTest::addColumn<qreal>("opacity");
        QTest::newRow("layer") << qreal(9) << qreal(1);
        QTest::newRow("transparency") << qreal(-1) << qreal(0.5);
    }
    void layerAndTransparencyFollowTime() {
        QFETCH(qreal, layer);
        QFETCH(qreal, opacity);
        seek(7);
        const qreal oldLayer = item()->zValue();
        const qreal oldOpacity = item()->opacity();
        if (layer >= 0)
            item()->setZValue(layer);
        item()->setOpacity(opacity);
        const qreal newLayer = item()->zValue();
        ViewInput::click(view(), placed(item()).center());
        settle();
        QCOMPARE(setsAt(7), 1);
        seek(6);
        QCOMPARE(item()->zValue(), oldLayer);
        QCOMPARE(item()->opacity(), oldOpacity);
        seek(8);
        QCOMPARE(item()->zValue(), newLayer);
        QCOMPARE(item()->opacity(), opacity);
    }

    void arrowsMoveTheFocusItemWhileEditing_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QPointF>("percent");
        const int none = Qt::NoModifier, control = Qt::ControlModifier;
        const int shift = Qt::ShiftModifier;
        QTest::newRow("up") << int(Qt::Key_Up) << none << QPointF(0, -2);
        QTest::newRow("control up") << int(Qt::Key_Up) << control << QPointF(0, -1);
        QTest::newRow("shift up") << int(Qt::Key_Up) << shift << QPointF(0, -4);
        QTest::newRow("control shift up") << int(Qt::Key_Up) << (control | shift) << QPointF(0, -1);
        QTest::newRow("right") << int(Qt::Key_Right) << none << QPointF(2, 0);
        QTest::newRow("left") << int(Qt::Key_Left) << none << QPointF(-2, 0);
        QTest::newRow("down") << int(Qt::Key_Down) << none << QPointF(0, 2);
        QTest::newRow("a letter records, moves nothing") << int(Qt::Key_A) << none << QPointF();
    }
    void arrowsMoveTheFocusItemWhileEditing() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QPointF, percent);
        seek(3);
        item()->setFocus(Qt::OtherFocusReason);
        const QPointF start(media->getLeftPx(100), media->getTopPx(100));
        WindowBench::key(Qt::Key(key), Qt::KeyboardModifiers(modifiers), view());
        QCOMPARE(setsAt(3), 1);
        QVERIFY(qAbs(media->getLeftPx(100) - start.x() - percent.x()) < 0.01);
        QVERIFY(qAbs(media->getTopPx(100) - start.y() - percent.y()) < 0.01);
        QVERIFY(near(placed(item()), pixels(media)));
    }

    void keysOfAnEditorOnTheCanvasAreTheEditors() {
        seek(3);
        item()->setFocus(Qt::OtherFocusReason);
        const QRectF before = pixels(media);
        QLineEdit editor(canvas());
        editor.setFocus(Qt::OtherFocusReason);
        WindowBench::key(Qt::Key_Right, Qt::NoModifier, &editor);
        WindowBench::key(Qt::Key_A, Qt::NoModifier, &editor);
        QCOMPARE(setsAt(3), 0);
        QCOMPARE(pixels(media), before);
    }

    void linksFireWhilePlayingOnly_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("pressed"); // 0: a click on the item
        QTest::addColumn<bool>("playing");
        QTest::addColumn<bool>("fired");
        const QString enter = QString::number(Qt::Key_Enter);
        const QString red = QString::number(Qt::Key_F1);
        QTest::newRow("its key") << red << int(Qt::Key_F1) << true << true;
        QTest::newRow("another key") << red << int(Qt::Key_F2) << true << false;
        QTest::newRow("its key while editing") << red << int(Qt::Key_F1) << false << false;
        QTest::newRow("Return fires Enter") << enter << int(Qt::Key_Return) << true << true;
        QTest::newRow("Enter does not fire Return")
            << QString::number(Qt::Key_Return) << int(Qt::Key_Enter) << true << false;
        QTest::newRow("an arrow") << QString::number(Qt::Key_Right) << int(Qt::Key_Right) << true
                                  << true;
        QTest::newRow("click while playing") << QString() << 0 << true << true;
        QTest::newRow("click while editing") << QString() << 0 << false << false;
    }
    void linksFireWhilePlayingOnly() {
        QFETCH(QString, stored);
        QFETCH(int, pressed);
        QFETCH(bool, playing);
        QFETCH(bool, fired);
        Sync* link = doc->createSync(scene(), media->getId(), true, SyncType::select, 2,
                                     {{"key", stored}, {"url", kPage}}, -1);
        QVERIFY(link);
        seek(2);
        if (playing) {
            scene()->playScene();
            QCOMPARE(scene()->getStatusPlayer(), Definitions::kPlayerStatus::play);
        }
        if (pressed)
            WindowBench::key(Qt::Key(pressed), Qt::NoModifier, view());
        else
            ViewInput::click(view(), placed(item()).center());
        settle();
        QCOMPARE(opened, fired ? QList<QUrl>{QUrl(kPage)} : QList<QUrl>());
        // A fired link leaves the scene paused.
        if (fired)
            QCOMPARE(scene()->getStatusPlayer(), Definitions::kPlayerStatus::pause);
    }

    void aLinkToASceneJumps_data() {
        QTest::addColumn<QString>("url");
        QTest::addColumn<Definitions::kPlayerStatus>("target");
        QTest::newRow("scene only: the target plays")
            << QString() << Definitions::kPlayerStatus::play;
        QTest::newRow("page and scene: the target waits")
            << kPage << Definitions::kPlayerStatus::pause;
    }
    void aLinkToASceneJumps() {
        QFETCH(QString, url);
        QFETCH(Definitions::kPlayerStatus, target);
        Scene* first = scene();
        Scene* second = doc->createScene();
        QVERIFY(second);
        QVERIFY(doc->setCurrentScene(first->getId(), true));
        QVERIFY(doc->createSync(
            first, media->getId(), true, SyncType::select, 0,
            {{"url", url}, {"link", QString::number(second->getId())}, {"timeEvent", "0"}}, -1));
        first->playScene();
        ViewInput::click(view(), placed(item()).center());
        QTRY_COMPARE(scene(), second);
        QCOMPARE(first->getStatusPlayer(), Definitions::kPlayerStatus::pause);
        QCOMPARE(second->getStatusPlayer(), target);
        QCOMPARE(opened.size(), url.isEmpty() ? 0 : 1);
        second->pauseScene();
    }

    void keysWhilePlayingMoveNothing() {
        seek(1);
        item()->setFocus(Qt::OtherFocusReason);
        const QRectF before = pixels(media);
        scene()->playScene();
        WindowBench::key(Qt::Key_Up, Qt::NoModifier, view());
        WindowBench::key(Qt::Key_A, Qt::NoModifier, view());
        QCOMPARE(pixels(media), before);
        QCOMPARE(setsAt(scene()->getCurrentTime()), 0);
    }

    void aKeyMoveIsOneStepOfHistory() {
        seek(3);
        item()->setFocus(Qt::OtherFocusReason);
        const QRectF before = pixels(media);
        WindowBench::key(Qt::Key_Right, Qt::NoModifier, view());
        QCOMPARE(setsAt(3), 1);
        doc->undoAction();
        QCOMPARE(setsAt(3), 0);
        QVERIFY(near(pixels(media), before));
        QVERIFY(near(placed(item()), before));
        doc->redoAction();
        QCOMPARE(setsAt(3), 1);
        QVERIFY(near(placed(item()), before.translated(Definitions::getViewWidth() * 0.02, 0)));
    }
};

SELVORA_TEST_MAIN(TestCanvasEvents)
#include "tst_canvasevents.moc"
