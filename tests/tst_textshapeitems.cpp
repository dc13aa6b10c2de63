#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "spatialview/ShapeGeometry.h"
#include "spatialview/ShapeItem.h"
#include "spatialview/TextEdit.h"
#include "spatialview/TextItem.h"
#include "spatialview/WordingItem.h"
#include "support/CanvasStage.h"
#include "support/PictureProbe.h"
#include "support/TestMain.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QTemporaryDir>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Scene;
using selvora::spatialview::ShapeGeometry;
using selvora::spatialview::ShapeItem;
using selvora::spatialview::TextEdit;
using selvora::spatialview::TextItem;
using selvora::spatialview::WordingItem;
using selvora::test::CanvasStage;
using selvora::test::PictureProbe;

namespace {

using Shape = Definitions::kShapeType;

// A mask of what a path covers, without antialiasing: filled, or stroked at that width.
QImage mask(const QSize& size, const QPainterPath& path, qreal strokeWidth = 0) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    QPainter painter(&image);
    if (strokeWidth > 0)
        painter.strokePath(path, QPen(Qt::white, strokeWidth));
    else
        painter.fillPath(path, Qt::white);
    return image;
}

bool near(QRgb pixel, const QColor& colour, int tolerance = 48) {
    return qAbs(qRed(pixel) - colour.red()) <= tolerance &&
           qAbs(qGreen(pixel) - colour.green()) <= tolerance &&
           qAbs(qBlue(pixel) - colour.blue()) <= tolerance && qAlpha(pixel) > 200;
}

// The box of the pixels that are not transparent.
QRect inkBox(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 128)
                box |= QRect(x, y, 1, 1);
    return box;
}

} // namespace

// Text and shape items on a canvas of 720x405 whose pixels are scene units.
class TestTextShapeItems : public QObject {
    Q_OBJECT
private:
    QTemporaryDir dir;
    QWidget* holder = nullptr;
    QGraphicsView* view = nullptr;
    QGraphicsScene* canvas = nullptr;
    Scene* scene = nullptr;

    Media* media(Definitions::kMediaType type, const QString& wording, int shape = 0) {
        return Document::instance()->createMedia(scene, QString(), type, QString::number(shape),
                                                 wording);
    }
    template <class Item> Item* place(Item* item, const QRectF& rect) {
        canvas->addItem(item);
        item->setPos(rect.topLeft());
        item->init(QRectF(QPointF(0, 0), rect.size()));
        return item;
    }
    TextItem* text(Media* m, const QRectF& rect, const QString& alignment = "1",
                   const QString& size = "14") {
        return place(new TextItem(m->getId(), 1, 0, m->getHover(), m->getColorFont(),
                                  m->getFontFamily(), size, alignment, m->getWording(), scene,
                                  holder),
                     rect);
    }
    ShapeItem* shape(Media* m, const QRectF& rect, const QString& fill, const QString& outline,
                     Definitions::kOutlineWidth width = Definitions::kOutlineWidth::w3) {
        return place(new ShapeItem(m->getId(), 1, 0, QString(),
                                   Definitions::getkShapeType(m->getGeometry().toInt()),
                                   m->getColorFont(), fill, outline,
                                   Definitions::kOutlineStyle::solid, width, m->getFontFamily(),
                                   "14", "4", m->getWording(), scene, holder),
                     rect);
    }
    // What the canvas shows of the item, on a transparent ground.
    QImage render(QGraphicsItem* item) {
        QImage image(item->boundingRect().size().toSize(), QImage::Format_ARGB32_Premultiplied);
        image.fill(0);
        QPainter painter(&image);
        canvas->render(&painter, QRectF(QPointF(0, 0), image.size()),
                       QRectF(item->scenePos(), image.size()));
        return image;
    }

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
        // The editors of the items just deleted go now.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        view->setFocus();
    }

    // Every figure drawn by the item covers what the geometry's path covers: fill inside,
    // outline on the edge, nothing outside.
    void shapesMatchGeometry_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<QSize>("size");
        for (int type = 0; type < Definitions::kShapeCount; ++type)
            QTest::addRow("%s", qPrintable(Definitions::getkShapeTypeLegend(type)))
                << type << QSize(160, 120);
    }
    void shapesMatchGeometry() {
        QFETCH(int, type);
        QFETCH(QSize, size);
        const QColor fill(0, 0, 255), outline(255, 0, 0);
        ShapeItem* item = shape(media(Definitions::kMediaType::shape, QString(), type),
                                QRectF(QPointF(100, 100), size), fill.name(), outline.name());
        const QImage got = render(item);
        QCOMPARE(got.size(), size);

        const qreal pw = item->pen().widthF();
        const QPainterPath figure = ShapeGeometry::figure(
            static_cast<Shape>(type), ShapeGeometry::shapeRect(QRectF(QPointF(), size), pw), pw);
        QVERIFY(!figure.isEmpty());
        const QImage inside = mask(size, figure);
        // Antialiasing and the pen's width blur the edge: it is judged by the outline alone.
        QImage edge = mask(size, figure, pw + 4);
        {
            QPainter painter(&edge);
            painter.strokePath(figure.simplified(), QPen(Qt::white, pw + 4));
        }
        const QImage line = mask(size, figure.simplified(), pw);

        int checked = 0, wrong = 0, lined = 0, red = 0;
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x) {
                const QRgb pixel = got.pixel(x, y);
                if (qAlpha(line.pixel(x, y))) {
                    ++lined;
                    red += near(pixel, outline, 96);
                }
                if (qAlpha(edge.pixel(x, y)))
                    continue;
                ++checked;
                if (qAlpha(inside.pixel(x, y)) ? !near(pixel, fill) : qAlpha(pixel) != 0)
                    ++wrong;
            }
        if (wrong > checked / 100 || red < lined * 6 / 10)
            PictureProbe::keep(got, QStringLiteral("shape%1").arg(type));
        QVERIFY2(wrong <= checked / 100,
                 qPrintable(QString("%1 of %2 wrong").arg(wrong).arg(checked)));
        QVERIFY2(red >= lined * 6 / 10,
                 qPrintable(QString("outline %1 of %2").arg(red).arg(lined)));
    }

    // The wording lands by its alignment, on the canvas and in the picture alike.
    void textAlignment_data() {
        QTest::addColumn<QString>("alignment");
        QTest::addColumn<int>("expected"); // Qt flag, after the unknown values become right
        QTest::addColumn<bool>("picture");
        QTest::newRow("left, canvas") << "1" << int(Qt::AlignLeft) << false;
        QTest::newRow("right, picture") << "2" << int(Qt::AlignRight) << true;
        QTest::newRow("centre, canvas") << "4" << int(Qt::AlignHCenter) << false;
        QTest::newRow("unknown is right, picture") << "3" << int(Qt::AlignRight) << true;
    }
    void textAlignment() {
        QFETCH(QString, alignment);
        QFETCH(int, expected);
        QFETCH(bool, picture);
        TextItem* item = text(media(Definitions::kMediaType::text, "MMMM"),
                              QRectF(100, 100, 300, 60), alignment, "20");
        QImage image = render(item);
        if (picture) {
            const QString path = dir.filePath("align.png");
            QVERIFY(item->generateImage(path));
            image = QImage(path);
        }
        const QRect ink = inkBox(image);
        QVERIFY(!ink.isEmpty());
        // The wording's box: 12 in from the left and top, 11 from the right.
        QVERIFY2(ink.top() >= 12 && ink.top() < 32, qPrintable(QString::number(ink.top())));
        const int at = expected == Qt::AlignLeft    ? ink.left() - 12
                       : expected == Qt::AlignRight ? (300 - 11) - (ink.right() + 1)
                                                    : ink.center().x() - (12 + 277 / 2);
        QVERIFY2(qAbs(at) <= 4, qPrintable(QString("%1 off by %2").arg(alignment).arg(at)));
    }

    // The picture has the item's size and shows something, whatever the input; a render that
    // cannot be made writes no file and says so, so that the save goes on.
    void generateImage_data() {
        QTest::addColumn<bool>("isShape");
        QTest::addColumn<QString>("wording");
        QTest::addColumn<QSizeF>("itemSize");
        QTest::addColumn<bool>("written");
        const QSizeF textSize(240, 47), shapeSize(160, 120);
        for (const bool isShape : {false, true}) {
            const QSizeF item = isShape ? shapeSize : textSize;
            auto row = [&](const char* name, const QString& wording, bool zero = false) {
                QTest::addRow("%s %s", isShape ? "shape" : "text", name)
                    << isShape << wording << (zero ? QSizeF(0, 0) : item) << !zero;
            };
            row("100000 characters", QString("palavra ").repeated(12500));
            row("emoji and right to left", QString::fromUtf8("😀 مرحبا بالعالم שלום 🌍"));
            row("zero size", "Olá", true);
        }
        QTest::newRow("text empty") << false << "" << textSize << false;
        QTest::newRow("shape empty") << true << "" << shapeSize << true;
    }
    void generateImage() {
        QFETCH(bool, isShape);
        QFETCH(QString, wording);
        QFETCH(QSizeF, itemSize);
        QFETCH(bool, written);
        const QString path = dir.filePath(QStringLiteral("%1.png").arg(QTest::currentDataTag()));
        const QRectF rect(QPointF(100, 100), itemSize);
        WordingItem* item = nullptr;
        if (isShape) {
            // A triangle leaves its top corners to the transparent ground.
            Media* m = media(Definitions::kMediaType::shape, wording, int(Shape::triangle));
            item = shape(m, rect, "#000000", "#000000", Definitions::kOutlineWidth::w1);
        } else {
            item = text(media(Definitions::kMediaType::text, wording), rect);
        }
        const bool result = item->generateImage(path);
        QCOMPARE(result, written);
        QCOMPARE(QFile::exists(path), written);
        if (!written)
            return;
        const QImage picture(path);
        QCOMPARE(picture.size(), itemSize.toSize());
        QVERIFY(picture.hasAlphaChannel());
        QVERIFY(!inkBox(picture).isEmpty());
        if (isShape) {
            QCOMPARE(qAlpha(picture.pixel(0, 0)), 0);
            QCOMPARE(qAlpha(picture.pixel(picture.width() - 1, 0)), 0);
        }
    }

    // Sizes come in either decimal notation; what no font can take falls back or is bounded.
    void fontSize_data() {
        QTest::addColumn<QString>("given");
        QTest::addColumn<int>("pixels");
        QTest::newRow("comma") << "14,5" << 14;
        QTest::newRow("zero") << "0" << 14;
        QTest::newRow("huge") << "10000" << 1000;
    }
    void fontSize() {
        QFETCH(QString, given);
        QFETCH(int, pixels);
        TextItem* item =
            text(media(Definitions::kMediaType::text, "Olá"), QRectF(0, 0, 240, 47), "1", given);
        QCOMPARE(item->getFontSize(), pixels);
    }
};

SELVORA_TEST_MAIN(TestTextShapeItems)
#include "tst_textshapeitems.moc"
