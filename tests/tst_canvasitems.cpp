#include "document/Document.h"
#include "document/Scene.h"
#include "spatialview/ImageItem.h"
#include "spatialview/MainVideo.h"
#include "spatialview/SpatialResizingMedia.h"
#include "support/CanvasStage.h"
#include "support/PictureProbe.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"

#include <QFile>
#include <QGraphicsScene>
#include <QGraphicsVideoItem>
#include <QGraphicsView>
#include <QImageWriter>
#include <QTemporaryDir>

#include <sys/stat.h>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Scene;
using selvora::spatialview::ImageItem;
using selvora::spatialview::MainVideo;
using selvora::spatialview::SpatialResizingMedia;
using selvora::test::CanvasStage;
using selvora::test::PictureProbe;
using selvora::test::ViewInput;

namespace {

const auto kMedia = Definitions::kSpatialResizingType::spatialResizingMedia;

} // namespace

// The canvas items on a canvas of 720x405 whose pixels are scene units.
class TestCanvasItems : public QObject {
    Q_OBJECT
private:
    QTemporaryDir dir;
    QWidget* holder = nullptr;
    QGraphicsView* view = nullptr;
    QGraphicsScene* canvas = nullptr;
    Scene* scene = nullptr;

    QString picture(const QString& name, QColor colour, QSize size = QSize(200, 100)) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        const QString path = dir.filePath(name);
        image.save(path);
        return path;
    }
    // An item standing at (100, 100) with a size of 200x100, focused so that its handles show.
    template <class Item> Item* place(Item* item) {
        canvas->addItem(item);
        item->setPos(100, 100);
        item->init(QRectF(0, 0, 200, 100));
        item->setFocus(Qt::OtherFocusReason);
        return item;
    }
    ImageItem* image(const QString& path, const QString& hover = QString()) {
        return place(new ImageItem(7, path, 1, 0, hover, scene, holder, kMedia, nullptr));
    }
    static QRectF sceneRect(const SpatialResizingMedia* item) {
        return QRectF(item->scenePos(), item->getRect().size());
    }
    QImage grab() { return PictureProbe::grab(view->viewport()); }

private slots:
    void initTestCase() {
        QVERIFY(dir.isValid());
        QCOMPARE(Definitions::getViewWidth(), 720);
        Document::instance()->newProject();
        scene = Document::instance()->getScene(-1);
        QVERIFY(scene);

        holder = new QWidget;
        view = CanvasStage::build(holder);
        canvas = view->scene();
        QVERIFY(CanvasStage::show(view));
    }
    void cleanupTestCase() { delete holder; }
    void cleanup() {
        canvas->clear();
        scene->setStatusPlayer(Definitions::kPlayerStatus::pause);
        // Events of this test still queued must not reach the next one.
        QCoreApplication::sendPostedEvents(holder, Definitions::getSpatialEventType());
    }

    // Handle centres of the item at (100, 100, 200, 100), in scene units.
    void handleDrag_data() {
        QTest::addColumn<QPointF>("handle");
        QTest::addColumn<QPointF>("by");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QRectF>("result");
        const QPointF topLeft(103, 103), topRight(297, 103), bottomLeft(103, 197),
            bottomRight(297, 197), topMiddle(199, 103), bottomMiddle(199, 197),
            leftMiddle(103, 150), rightMiddle(297, 150);
        const int none = Qt::NoModifier, control = Qt::ControlModifier, shift = Qt::ShiftModifier;
        auto row = [](const char* name, const QPointF& handle, const QPointF& by, int modifiers,
                      const QRectF& result) {
            QTest::newRow(name) << handle << by << modifiers << result;
        };
        row("free top left", topLeft, {-40, -20}, none, {60, 80, 240, 120});
        row("free top middle", topMiddle, {25, -30}, none, {100, 70, 200, 130});
        // Past the opposite side: the minimum, the far edges fixed.
        row("top left past bottom right", topLeft, {400, 300}, none, {280, 180, 20, 20});
        row("bottom right clamped", bottomRight, {600, 400}, none, {100, 100, 620, 305});
        // Control keeps the ratio on a corner; at the canvas edge both sides stop.
        row("control bottom right", bottomRight, {100, 10}, control, {100, 100, 220, 110});
        row("control at the canvas edge", bottomRight, {600, 600}, control, {100, 100, 610, 305});
        row("shift does nothing", bottomRight, {50, 30}, shift, {100, 100, 200, 100});
    }
    void handleDrag() {
        QFETCH(QPointF, handle);
        QFETCH(QPointF, by);
        QFETCH(int, modifiers);
        QFETCH(QRectF, result);
        auto* item = place(new SpatialResizingMedia(3, kMedia, nullptr, -1));
        QTRY_VERIFY(item->childItems().first()->isVisible());
        ViewInput::drag(view, handle, handle + by, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(sceneRect(item), result);
        // The handles follow the new rectangle.
        QCOMPARE(item->childItems().at(3)->pos(), QPointF(result.width() - 6, result.height() - 6));
    }

    void hoverEffects_data() {
        QTest::addColumn<QString>("hover");
        QTest::addColumn<bool>("playing");
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QPointF>("pos");
        QTest::addColumn<bool>("border");
        const QPointF still(100, 100);
        QTest::newRow("grow") << "0" << true << 1.1 << QPointF(90, 95) << false;
        QTest::newRow("float") << "4" << true << 1.0 << QPointF(100, 85) << false;
        QTest::newRow("border") << "9" << true << 1.0 << still << true;
        QTest::newRow("grow paused: nothing") << "0" << false << 1.0 << still << false;
    }
    void hoverEffects() {
        QFETCH(QString, hover);
        QFETCH(bool, playing);
        QFETCH(qreal, scale);
        QFETCH(QPointF, pos);
        QFETCH(bool, border);
        ImageItem* item = image(picture("green.png", Qt::green), hover);
        item->clearFocus();
        scene->setStatusPlayer(playing ? Definitions::kPlayerStatus::play
                                       : Definitions::kPlayerStatus::pause);
        const QRect leftEdge(100, 130, 2, 40);
        ViewInput::move(view, QPointF(150, 150), Qt::NoButton);
        const QImage on = grab();
        QCOMPARE(item->scale(), scale);
        QCOMPARE(item->pos(), pos);
        QCOMPARE(PictureProbe::share(on, leftEdge, Qt::black) > 0.9, border);

        ViewInput::move(view, QPointF(600, 380), Qt::NoButton);
        const QImage off = grab();
        QCOMPARE(item->scale(), 1.0);
        QCOMPARE(item->pos(), QPointF(100, 100));
        QVERIFY(PictureProbe::share(off, leftEdge, Qt::green) > 0.9);
    }

    // A file that gives no picture shows a grey placeholder with a mark, never a hole.
    void placeholders_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("shown");
        auto row = [](const char* name, const char* kind, const char* file, bool shown) {
            QTest::newRow(name) << kind << file << shown;
        };
        row("image missing", "image", "missing.png", true);
        row("image garbage", "image", "garbage.png", true);
        row("image fifo", "image", "fifo.png", true);
        row("image good", "image", "green.png", false);
        row("video missing", "video", "missing.mp4", true);
        row("video unplayable", "unplayable", "garbage.png", true);
        row("video present", "video", "garbage.png", false);
    }
    void placeholders() {
        QFETCH(QString, kind);
        QFETCH(QString, file);
        QFETCH(bool, shown);
        picture("green.png", Qt::green);
        QFile garbage(dir.filePath("garbage.png"));
        QVERIFY(garbage.open(QIODevice::WriteOnly));
        garbage.write(QByteArray(4096, '\x5a'));
        garbage.close();
        QDir(dir.path()).mkpath("folder.png");
        if (!QFileInfo::exists(dir.filePath("fifo.png")))
            QCOMPARE(::mkfifo(QFile::encodeName(dir.filePath("fifo.png")).constData(), 0600), 0);

        const QString path = dir.filePath(file);
        SpatialResizingMedia* item = nullptr;
        if (kind == "image") {
            item = image(path);
        } else {
            auto* video = place(new MainVideo(4, path, QSizeF(200, 100), 1, 0, nullptr));
            video->setUnplayable(kind == "unplayable");
            item = video;
        }
        item->clearFocus();
        const QImage picture = grab();
        const double grey =
            PictureProbe::share(picture, QRect(105, 105, 190, 90), QColor(224, 224, 224), 8);
        const double mark =
            PictureProbe::share(picture, QRect(180, 130, 40, 40), QColor(200, 40, 40), 30);
        if (shown != (grey > 0.6) || shown != (mark > 0.01))
            PictureProbe::keep(picture, QStringLiteral("placeholder-") + QTest::currentDataTag());
        QCOMPARE(grey > 0.6, shown);
        QCOMPARE(mark > 0.01, shown);
    }

    // A picture much larger than the canvas is held at canvas size only, and shown whole.
    void bigImageDecodedAtCanvasSize() {
        const QSize natural(6000, 4000);
        QImage big(natural, QImage::Format_RGB32);
        big.fill(Qt::blue);
        const QString path = dir.filePath("big.png");
        QImageWriter writer(path);
        writer.setCompression(1);
        QVERIFY(writer.write(big));
        big = QImage();

        auto* item = new ImageItem(8, path, 1, 0, QString(), scene, holder, kMedia, nullptr);
        canvas->addItem(item);
        QCOMPARE(item->naturalSize(), natural);
        const QSize held = natural.scaled(720, 405, Qt::KeepAspectRatio);
        QCOMPARE(item->imageSize(), held);
        item->init(QRectF(QPointF(0, 0), item->naturalSize()));
        QCOMPARE(item->getRect().size(), QSizeF(607.5, 405));
        QVERIFY(PictureProbe::share(grab(), QRect(0, 0, 600, 400), Qt::blue) > 0.99);

        // A new path of a small picture is held at its own size.
        item->setImagePath(picture("small.png", Qt::red, QSize(50, 40)));
        QCOMPARE(item->imageSize(), QSize(50, 40));
    }
};

SELVORA_TEST_MAIN(TestCanvasItems)
#include "tst_canvasitems.moc"
