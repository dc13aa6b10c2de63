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
#include "support/ViewInput.h"
#include "support/WindowBench.h"

#include <QElapsedTimer>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextEdit>

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
using selvora::test::ViewInput;
using selvora::test::WindowBench;

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
                   const QString& size = "14", const QString& family = QString(),
                   const QString& colour = QString()) {
        return place(new TextItem(m->getId(), 1, 0, m->getHover(),
                                  colour.isNull() ? m->getColorFont() : colour,
                                  family.isNull() ? m->getFontFamily() : family, size, alignment,
                                  m->getWording(), scene, holder),
                     rect);
    }
    ShapeItem* shape(Media* m, const QRectF& rect, const QString& fill, const QString& outline,
                     Definitions::kOutlineWidth width = Definitions::kOutlineWidth::w3,
                     const QString& size = "14", const QString& hover = QString()) {
        return place(new ShapeItem(m->getId(), 1, 0, hover,
                                   Definitions::getkShapeType(m->getGeometry().toInt()),
                                   m->getColorFont(), fill, outline,
                                   Definitions::kOutlineStyle::solid, width, m->getFontFamily(),
                                   size, "4", m->getWording(), scene, holder),
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
        for (const bool picture : {false, true}) {
            const char* where = picture ? "picture" : "canvas";
            QTest::addRow("left, %s", where) << "1" << int(Qt::AlignLeft) << picture;
            QTest::addRow("right, %s", where) << "2" << int(Qt::AlignRight) << picture;
            QTest::addRow("centre, %s", where) << "4" << int(Qt::AlignHCenter) << picture;
            QTest::addRow("unknown is right, %s", where) << "3" << int(Qt::AlignRight) << picture;
        }
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

    void doubleClickOpensEditor_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("opens");
        QTest::newRow("paused") << int(Definitions::kPlayerStatus::pause) << true;
        QTest::newRow("playing") << int(Definitions::kPlayerStatus::play) << false;
    }
    void doubleClickOpensEditor() {
        QFETCH(int, status);
        QFETCH(bool, opens);
        TextItem* item =
            text(media(Definitions::kMediaType::text, "Olá"), QRectF(100, 100, 240, 60));
        ShapeItem* figure = shape(media(Definitions::kMediaType::shape, "Oi"),
                                  QRectF(400, 100, 160, 120), "#00ff00", "#000000");
        scene->setStatusPlayer(static_cast<Definitions::kPlayerStatus>(status));
        ViewInput::doubleClick(view, QPointF(150, 130));
        QCOMPARE(item->getTextEdit()->isOpened(), opens);
        if (opens) {
            // The editor lies over the item, so that typing seems to happen on the canvas; the
            // item shows nothing under it.
            const QPoint itemOnScreen = view->viewport()->mapToGlobal(QPoint(100, 100));
            QCOMPARE(item->getTextEdit()->mapToGlobal(QPoint(0, 0)), itemOnScreen + QPoint(6, 6));
            QCOMPARE(item->getText(), QString(" "));
        }
        // A double click on another item ends that edit and opens its own.
        view->setFocus();
        ViewInput::doubleClick(view, QPointF(480, 160));
        QCOMPARE(figure->getTextEdit()->isOpened(), opens);
        QVERIFY(!item->getTextEdit()->isOpened());
        QCOMPARE(item->getText(), QString("Olá"));
    }

    // Typing goes to the media when the edit ends; the item grows with the wording and stops at
    // the bottom of the canvas.
    void typingGrowsItem_data() {
        QTest::addColumn<qreal>("top");
        QTest::addColumn<int>("lines");
        QTest::addColumn<bool>("reachesBottom");
        QTest::newRow("grows") << qreal(100) << 4 << false;
        QTest::newRow("stops at the canvas bottom") << qreal(300) << 12 << true;
    }
    void typingGrowsItem() {
        QFETCH(qreal, top);
        QFETCH(int, lines);
        QFETCH(bool, reachesBottom);
        Media* m = media(Definitions::kMediaType::text, "Olá");
        const qreal standard = Definitions::getMediaHeight(Definitions::kMediaType::text);
        TextItem* item = text(m, QRectF(100, top, 240, standard));
        item->setFocus();
        item->showEdit();
        QTextEdit* box = item->getTextEdit()->textBox();
        QApplication::setActiveWindow(holder);
        box->setFocus();
        QTRY_VERIFY(box->hasFocus());
        QString typed = "Olá";
        for (int i = 0; i < lines; ++i) {
            WindowBench::type("linha", box);
            WindowBench::key(Qt::Key_Return, Qt::NoModifier, box);
            typed += "linha\n";
        }
        if (reachesBottom)
            QTRY_COMPARE(item->boundingRect().height(), 405 - top);
        else
            QTRY_VERIFY(item->boundingRect().height() > standard + 3 * 14);
        QVERIFY(item->scenePos().y() + item->boundingRect().height() <= 405);
        QCOMPARE(m->getWording(), QString("Olá"));

        // A click on the canvas ends the edit.
        view->setFocus();
        ViewInput::click(view, QPointF(650, 20));
        QTRY_VERIFY(!item->getTextEdit()->isVisible());
        QCOMPARE(m->getWording(), typed);
        QCOMPARE(item->getText(), typed);
    }

    // A new empty text shows the prompt on the canvas, opens nothing and stores nothing.
    void promptForEmptyText() {
        Media* m = media(Definitions::kMediaType::text, QString());
        TextItem* item = text(m, QRectF(100, 100, 240, 47));
        item->showEditWidget();
        QCOMPARE(item->getText(), QString("Duplo clique para editar"));
        QVERIFY(!inkBox(render(item)).isEmpty());
    }

    // An emptied text asks once to be removed, until it has the focus again.
    void emptyingAsksDeletionOnce() {
        Media* m = media(Definitions::kMediaType::text, "abc");
        TextItem* item = text(m, QRectF(100, 100, 240, 60));
        QSignalSpy spy(item, &TextItem::deleteItem);
        item->showEdit();
        QTextEdit* box = item->getTextEdit()->textBox();
        QApplication::setActiveWindow(holder);
        box->setFocus();
        WindowBench::key(Qt::Key_A, Qt::ControlModifier, box);
        WindowBench::key(Qt::Key_Backspace, Qt::NoModifier, box);
        QCOMPARE(box->toPlainText(), QString());
        item->getTextEdit()->closeWidget();
        QTRY_COMPARE(spy.count(), 1);
        item->showEdit();
        item->getTextEdit()->closeWidget();
        QCoreApplication::processEvents();
        QCOMPARE(spy.count(), 1);
    }

    // The picture has the item's size and shows something, whatever the input; a render that
    // cannot be made writes no file and says so, so that the save goes on.
    void generateImage_data() {
        QTest::addColumn<bool>("isShape");
        QTest::addColumn<QString>("wording");
        QTest::addColumn<QString>("family");
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("colour");
        QTest::addColumn<QSizeF>("itemSize");
        QTest::addColumn<bool>("written");
        const QString arial = QFont("Arial").toString();
        const QSizeF textSize(240, 47), shapeSize(160, 120);
        for (const bool isShape : {false, true}) {
            const QSizeF item = isShape ? shapeSize : textSize;
            auto row = [&](const char* name, const QString& wording, const QString& family,
                           const QString& size, const QString& colour, bool zero = false) {
                QTest::addRow("%s %s", isShape ? "shape" : "text", name)
                    << isShape << wording << family << size << colour
                    << (zero ? QSizeF(0, 0) : item) << !zero;
            };
            row("100000 characters", QString("palavra ").repeated(12500), arial, "14", "#000000");
            row("emoji and right to left", QString::fromUtf8("😀 مرحبا بالعالم שלום 🌍"), arial, "14",
                "#000000");
            row("missing family", "Olá", "Família Que Não Existe,-1,14,5,50,0,0,0,0,0", "14",
                "#000000");
            row("zero size", "Olá", arial, "14", "#000000", true);
        }
        QTest::newRow("text empty") << false << "" << arial << "14"
                                    << "#000000" << textSize << false;
        QTest::newRow("shape empty") << true << "" << arial << "14"
                                     << "#000000" << shapeSize << true;
    }
    void generateImage() {
        QFETCH(bool, isShape);
        QFETCH(QString, wording);
        QFETCH(QString, family);
        QFETCH(QString, size);
        QFETCH(QString, colour);
        QFETCH(QSizeF, itemSize);
        QFETCH(bool, written);
        const QString path = dir.filePath(QStringLiteral("%1.png").arg(QTest::currentDataTag()));
        const QRectF rect(QPointF(100, 100), itemSize);
        WordingItem* item = nullptr;
        if (isShape) {
            // A triangle leaves its top corners to the transparent ground.
            Media* m = media(Definitions::kMediaType::shape, wording, int(Shape::triangle));
            item = shape(m, rect, colour, colour, Definitions::kOutlineWidth::w1, size);
            item->setFontFamily(family);
            item->setColorFont(colour);
        } else {
            item = text(media(Definitions::kMediaType::text, wording), rect, "1", size, family,
                        colour);
        }
        QElapsedTimer clock;
        clock.start();
        const bool result = item->generateImage(path);
        QVERIFY2(clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
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
