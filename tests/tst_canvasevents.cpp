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

using namespace selvora;
using namespace selvora::test;
using document::Media;
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

    void arrowsMoveTheFocusItemWhileEditing_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QPointF>("percent");
        const int none = Qt::NoModifier, control = Qt::ControlModifier;
        const int shift = Qt::ShiftModifier;
        QTest::newRow("up") << int(Qt::Key_Up) << none << QPointF(0, -2);
        QTest::newRow("control up") << int(Qt::Key_Up) << control << QPointF(0, -1);
        QTest::newRow("shift up") << int(Qt::Key_Up) << shift << QPointF(0, -4);
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
        QTest::newRow("click while playing") << QString() << 0 << true << true;
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

    void aKeyMoveIsOneStepOfHistory() {
        seek(3);
        item()->setFocus(Qt::OtherFocusReason);
        const QRectF before = pixels(media);
        WindowBench::key(Qt::Key_Right, Qt::NoModifier, view());
        QCOMPARE(setsAt(3), 1);
        doc->undoAction();
        QCOMPARE(setsAt(3), 0);
        QVERIFY(near(pixels(media), before));
    }
};

SELVORA_TEST_MAIN(TestCanvasEvents)
#include "tst_canvasevents.moc"
