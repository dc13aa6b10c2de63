#include "support/TestMain.h"

#include "app/Definitions.h"
#include "spatialview/ShapeGeometry.h"

#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QtMath>

using selvora::Definitions;
using selvora::spatialview::ShapeGeometry;
using Shape = Definitions::kShapeType;

Q_DECLARE_METATYPE(Shape)

namespace {

// A picture drawn for the program: it loads, is not empty, and has more than one colour.
void verifyPicture(const QString& resource) {
    const QImage image(resource);
    QVERIFY2(!image.isNull(), qPrintable(resource + " does not load"));
    QSet<QRgb> colours;
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < argb.height() && colours.size() < 2; ++y)
        for (int x = 0; x < argb.width(); ++x)
            if (qAlpha(argb.pixel(x, y)) > 0)
                colours.insert(argb.pixel(x, y));
    QVERIFY2(colours.size() >= 2, qPrintable(resource + " is blank or a single colour"));
}

QImage paintFigure(Shape type, const QSizeF& size, qreal penWidth, int margin) {
    QImage image(qRound(size.width()) + 2 * margin, qRound(size.height()) + 2 * margin,
                 QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(margin, margin);
    ShapeGeometry::paintInBounds(&painter, type, QRectF(QPointF(0, 0), size),
                                 QPen(Qt::black, penWidth), QColor(255, 127, 0));
    return image;
}

// A polygon from x, y pairs.
QPolygon points(std::initializer_list<int> coordinates) {
    QPolygon polygon;
    polygon.setPoints(int(coordinates.size() / 2), coordinates.begin());
    return polygon;
}

// The shape rectangle of a 200x120 item with a pen of 6: (3, 3, 194, 114), so that L = 3,
// T = 3, R = 196, B = 116, w = 194, h = 114, CX = 99, CY = 59 and p = 3.
const QRect kRect(3, 3, 194, 114);
constexpr float kPen = 6;

} // namespace

class TestResources : public QObject {
    Q_OBJECT

private slots:
    void namesUsedInCodeLoad_data();
    void namesUsedInCodeLoad();
    void requiredNamesLoad_data();
    void requiredNamesLoad();
    void styleSheetLoads();

    void shapeRectKeepsPenInside();
    void everyFigureStaysInItsItem_data();
    void everyFigureStaysInItsItem();
    void polygonPointsFollowTable_data();
    void polygonPointsFollowTable();
    void cubeClosesItsTopFace();
    void roundFiguresContainTheirParts_data();
    void roundFiguresContainTheirParts();
    void divisionAndEqualityParts();
    void outlinePenMatchesLegends();
    void unknownFigureDrawsNothing();
};

void TestResources::namesUsedInCodeLoad_data() {
    QTest::addColumn<QString>("resource");
    const QRegularExpression literal(QStringLiteral("\":/imagens/([^\"]*)\""));
    QSet<QString> seen;
    QDirIterator files(SELVORA_SOURCE_DIR "/src", {"*.cpp", "*.h"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
        const QString text = QString::fromUtf8(file.readAll());
        auto matches = literal.globalMatch(text);
        while (matches.hasNext()) {
            const QString name = matches.next().captured(1);
            // The bare prefix is completed at run time (shape words, layout numbers): those
            // names are checked by requiredNamesLoad.
            if (name.isEmpty() || name.contains('%') || seen.contains(name))
                continue;
            seen.insert(name);
            QTest::newRow(qPrintable(name)) << ":/imagens/" + name;
        }
    }
    if (seen.isEmpty())
        QTest::newRow("no literal yet") << ":/imagens/icone";
}

void TestResources::namesUsedInCodeLoad() {
    QFETCH(QString, resource);
    verifyPicture(resource);
}

void TestResources::requiredNamesLoad_data() {
    QTest::addColumn<QString>("resource");
    QStringList names = {"new",
                         "open",
                         "save",
                         "saveas",
                         "exit",
                         "undo",
                         "redo",
                         "icone",
                         "splash_screen",
                         "report",
                         "update",
                         "play",
                         "pause",
                         "seekBackward",
                         "seekForward",
                         "clock",
                         "link",
                         "copy",
                         "paste",
                         "del",
                         "rename",
                         "change",
                         "editText",
                         "bringForward",
                         "sendBackward",
                         "bringToFront",
                         "sendToBack",
                         "up",
                         "down",
                         "insert",
                         "import",
                         "slide",
                         "layout",
                         "width",
                         "height",
                         "X",
                         "Y",
                         "hover",
                         "fillColor",
                         "outlineColor",
                         "null",
                         "negrito",
                         "italico",
                         "sublinhado",
                         "textJustify",
                         "textLeft",
                         "textMiddle",
                         "textRight",
                         "red",
                         "green",
                         "yellow",
                         "blue",
                         "enter",
                         "cursor_up",
                         "cursor_down",
                         "cursor_left",
                         "cursor_right"};
    for (const char* number : {"01", "02", "03", "04", "05", "06", "08", "09", "10", "11", "12"}) {
        names << QString("icones-Selvora_%1").arg(number);
        names << QString("icones-Selvora_%1-gray").arg(number);
    }
    for (int i = 0; i < Definitions::kShapeCount; ++i)
        names << Definitions::getkShapeTypeLegend(i);
    for (int i = 1; i <= Definitions::kLayoutCount; ++i)
        names << QString("layout%1").arg(i);
    for (int i = 0; i < 9; ++i)
        names << Definitions::getkOutlineWidthLegend(i);
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), 57 + 22 + 52 + 18 + 9);
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << ":/imagens/" + name;
}

void TestResources::requiredNamesLoad() {
    QFETCH(QString, resource);
    verifyPicture(resource);
}

void TestResources::styleSheetLoads() {
    QFile css(":/css/main");
    QVERIFY(css.open(QIODevice::ReadOnly | QIODevice::Text));
    QVERIFY(QString::fromUtf8(css.readAll()).contains("QToolTip"));
}

void TestResources::shapeRectKeepsPenInside() {
    QCOMPARE(ShapeGeometry::shapeRect(QRectF(0, 0, 200, 120), 6), QRectF(3, 3, 194, 114));
    QCOMPARE(ShapeGeometry::shapeRect(QRectF(0, 0, 200, 120), 6).toRect(), kRect);
    QCOMPARE(ShapeGeometry::shapeRect(QRectF(0, 0, 80, 40), 0.25),
             QRectF(0.125, 0.125, 79.75, 39.75));
}

void TestResources::everyFigureStaysInItsItem_data() {
    QTest::addColumn<Shape>("type");
    QTest::addColumn<qreal>("penWidth");
    for (int i = 0; i < Definitions::kShapeCount; ++i) {
        const QString name = Definitions::getkShapeTypeLegend(i);
        QTest::newRow(qPrintable(name + " thin")) << static_cast<Shape>(i) << qreal(0.25);
        QTest::newRow(qPrintable(name + " 6pt")) << static_cast<Shape>(i) << qreal(6);
    }
}

// Every figure is drawn, and with the pen it stays within the item: half a pen at the top and
// left, a whole pen at the right and bottom.
void TestResources::everyFigureStaysInItsItem() {
    QFETCH(Shape, type);
    QFETCH(qreal, penWidth);
    const QSizeF size(200, 120);
    const QRectF shapeRect = ShapeGeometry::shapeRect(QRectF(QPointF(0, 0), size), penWidth);
    const QPainterPath figure = ShapeGeometry::figure(type, shapeRect, penWidth);
    QVERIFY(!figure.isEmpty());
    QVERIFY(figure.boundingRect().width() > size.width() / 6);
    QVERIFY(figure.boundingRect().height() > size.height() / 4);

    const int margin = 10;
    const QImage image = paintFigure(type, size, penWidth, margin);
    const QRect item(margin, margin, size.width(), size.height());
    // The bars of the equality start at the origin and the brackets are as tall as the bottom
    // coordinate, as their tables have it: half a pen may fall outside.
    const bool loose =
        type == Shape::equality || type == Shape::bracket_open || type == Shape::bracket_close;
    // Antialiasing may bleed into the pixel next to the edge.
    const int slack = loose ? qCeil(penWidth / 2) + 1 : 1;
    int inside = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = qAlpha(image.pixel(x, y));
            if (alpha == 0)
                continue;
            QVERIFY2(item.adjusted(-slack, -slack, slack, slack).contains(x, y),
                     qPrintable(QString("painted at (%1, %2)").arg(x - margin).arg(y - margin)));
            ++inside;
        }
    QVERIFY(inside > 200);
}

void TestResources::polygonPointsFollowTable_data() {
    QTest::addColumn<Shape>("type");
    QTest::addColumn<QPolygon>("expected");
    QTest::newRow("triangle") << Shape::triangle << points({99, 3, 196, 116, 3, 116});
    QTest::newRow("diamond") << Shape::diamond << points({3, 59, 99, 3, 196, 59, 99, 116});
    // 0.25w + 2p = 48.5 + 6, truncated after the sum.
    QTest::newRow("parallelogramLeft")
        << Shape::parallelogram_left << points({54, 3, 196, 3, 145, 116, 3, 116});
    // 2w/3 is an integer division (129) before p is added.
    QTest::newRow("trapezeTop") << Shape::trapeze_top << points({132, 3, 64, 3, 3, 116, 196, 116});
    QTest::newRow("trapezeRight") << Shape::trapeze_right
                                  << points({3, 3, 67, 3, 196, 116, 3, 116});
    QTest::newRow("octogon") << Shape::octogon
                             << points({3, 34, 58, 3, 141, 3, 196, 34, 196, 85, 141, 116, 58, 116,
                                        3, 85});
    QTest::newRow("arrowRight") << Shape::arrow_right
                                << points({3, 38, 116, 38, 116, 11, 196, 59, 116, 102, 116, 76, 3,
                                           76});
    QTest::newRow("plus") << Shape::plus
                          << points({3,   40, 67,  40, 67,  3,   131, 3,   131, 40, 196, 40,
                                     196, 75, 131, 75, 131, 116, 67,  116, 67,  75, 3,   75});
    QTest::newRow("starFivePoints")
        << Shape::star_five_points << points({3,   43, 76,  43,  99, 3,  123, 43,  196, 43,
                                              134, 70, 158, 116, 99, 86, 39,  116, 63,  70});
    QTest::newRow("balloonRect2") << Shape::balloon_rect2
                                  << points({119, 34, 183, 3, 163, 34, 196, 34, 196, 116, 3, 116, 3,
                                             34});
}

void TestResources::polygonPointsFollowTable() {
    QFETCH(Shape, type);
    QFETCH(QPolygon, expected);
    QCOMPARE(ShapeGeometry::kindOf(type), ShapeGeometry::Kind::polygon);
    QCOMPARE(ShapeGeometry::polygon(type, kRect, kPen), expected);
}

void TestResources::cubeClosesItsTopFace() {
    for (Shape type : {Shape::cube_left, Shape::cube_right}) {
        const QPolygon cube = ShapeGeometry::polygon(type, kRect, kPen);
        QVERIFY(cube.size() > 3);
        QCOMPARE(cube.boundingRect(), kRect);
        // h/4 + 2p = 28 + 6; 0.75w = 145.
        const QPolygon top = type == Shape::cube_left ? points({196, 3, 54, 3, 3, 34})
                                                      : points({3, 3, 145, 3, 196, 34});
        QCOMPARE(cube.mid(cube.size() - 3), top);
    }
}

void TestResources::roundFiguresContainTheirParts_data() {
    QTest::addColumn<Shape>("type");
    QTest::addColumn<QPolygonF>("inside");
    QTest::addColumn<QPolygonF>("outside");
    // The ellipse is centred on (99, 59) with half sizes 87.3 - 0.6 and 34.2.
    QTest::newRow("balloon1") << Shape::balloon1
                              << QPolygonF(QVector<QPointF>{{99, 59}, {27, 110}, {14, 59}})
                              << QPolygonF(QVector<QPointF>{{27, 118}, {99, 96}, {5, 59}});
    QTest::newRow("balloon2") << Shape::balloon2 << QPolygonF(QVector<QPointF>{{99, 59}, {165, 12}})
                              << QPolygonF(QVector<QPointF>{{120, 12}, {99, 22}});
    // Large centre (99, 39), middle (49, 88), small (24, 106).
    QTest::newRow("balloonThought1")
        << Shape::balloonThought1
        << QPolygonF(QVector<QPointF>{{99, 39}, {49, 88}, {24, 106}, {65, 39}})
        << QPolygonF(QVector<QPointF>{{99, 80}, {35, 97}, {150, 100}});
    // Large centre (int(99 + 1.1), 74), middle (123, 29), small (148, 11).
    QTest::newRow("balloonThought2")
        << Shape::balloonThought2 << QPolygonF(QVector<QPointF>{{100, 74}, {123, 29}, {148, 11}})
        << QPolygonF(QVector<QPointF>{{100, 30}, {136, 20}, {40, 11}});
    // The outer half ellipse starts at w/9 = 21, the inner one at w/5 = 38.
    QTest::newRow("bracketOpen") << Shape::bracket_open
                                 << QPolygonF(QVector<QPointF>{{29, 59}, {45, 20}})
                                 << QPolygonF(QVector<QPointF>{{50, 59}, {15, 59}, {70, 59}});
    QTest::newRow("bracketClose") << Shape::bracket_close << QPolygonF(QVector<QPointF>{{110, 59}})
                                  << QPolygonF(QVector<QPointF>{{90, 59}, {125, 59}, {50, 59}});
}

void TestResources::roundFiguresContainTheirParts() {
    QFETCH(Shape, type);
    QFETCH(QPolygonF, inside);
    QFETCH(QPolygonF, outside);
    const QPainterPath path = ShapeGeometry::path(type, kRect, kPen);
    for (const QPointF& point : inside)
        QVERIFY2(path.contains(point),
                 qPrintable(QString("(%1, %2) missing").arg(point.x()).arg(point.y())));
    for (const QPointF& point : outside)
        QVERIFY2(!path.contains(point),
                 qPrintable(QString("(%1, %2) covered").arg(point.x()).arg(point.y())));
    QVERIFY(ShapeGeometry::polygon(type, kRect, kPen).isEmpty());
}

void TestResources::divisionAndEqualityParts() {
    const QRectF shapeRect(3, 3, 194, 114);
    QCOMPARE(ShapeGeometry::divisionDot(shapeRect, 0), QRect(77, 11, 38, 22));
    QCOMPARE(ShapeGeometry::divisionDot(shapeRect, 1), QRect(77, 79, 38, 22));
    QCOMPARE(ShapeGeometry::equalityBar(shapeRect, 0), QRect(0, 22, 194, 28));
    QCOMPARE(ShapeGeometry::equalityBar(shapeRect, 1), QRect(0, 62, 194, 28));
    const QPainterPath division = ShapeGeometry::figure(Shape::division, shapeRect, kPen);
    QVERIFY(division.contains(QPointF(96, 22)));
    QVERIFY(division.contains(QPointF(99, 59)));
    QVERIFY(!division.contains(QPointF(99, 40)));
}

// The pictures of the outline widths carry the legends, so the pen widths must agree with them.
void TestResources::outlinePenMatchesLegends() {
    for (int i = 0; i < 9; ++i) {
        const auto width = static_cast<Definitions::kOutlineWidth>(i);
        QCOMPARE(QString::number(ShapeGeometry::penWidth(width)) + "pt",
                 Definitions::getkOutlineWidthLegend(i));
    }
    QCOMPARE(ShapeGeometry::penStyle(Definitions::kOutlineStyle::solid), Qt::SolidLine);
    QCOMPARE(ShapeGeometry::penStyle(Definitions::kOutlineStyle::dashDotDot), Qt::DashDotDotLine);
}

void TestResources::unknownFigureDrawsNothing() {
    QCOMPARE(ShapeGeometry::kindOf(-1), ShapeGeometry::Kind::none);
    QCOMPARE(ShapeGeometry::kindOf(Definitions::kShapeCount), ShapeGeometry::Kind::none);
    const QImage image =
        paintFigure(static_cast<Shape>(Definitions::kShapeCount), QSizeF(60, 40), 2, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(qAlpha(image.pixel(x, y)), 0);
}

SELVORA_TEST_MAIN(TestResources)
#include "tst_resources.moc"
