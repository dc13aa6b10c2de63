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

    void shapeRectKeepsPenInside();
    void everyFigureStaysInItsItem_data();
    void everyFigureStaysInItsItem();
    void polygonPointsFollowTable_data();
    void polygonPointsFollowTable();
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

void TestResources::requiredNamesLoad_data() {
    QTest::addColumn<QString>("resource");
    // Names completed at run time; the literal ones are checked by namesUsedInCodeLoad.
    QStringList names;
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
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), 22 + 52 + 18 + 9);
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << ":/imagens/" + name;
}

void TestResources::requiredNamesLoad() {
    QFETCH(QString, resource);
    verifyPicture(resource);
}

void TestResources::namesUsedInCodeLoad() {
    requiredNamesLoad();
}

void TestResources::shapeRectKeepsPenInside() {
    QCOMPARE(ShapeGeometry::shapeRect(QRectF(0, 0, 200, 120), 6), QRectF(kRect));
    QCOMPARE(ShapeGeometry::shapeRect(QRectF(0, 0, 80, 40), 0.25),
             QRectF(0.125, 0.125, 79.75, 39.75));
}

void TestResources::everyFigureStaysInItsItem_data() {
    QTest::addColumn<Shape>("type");
    QTest::addColumn<qreal>("penWidth");
    for (int i = 0; i < Definitions::kShapeCount; ++i) {
        const QString name = Definitions::getkShapeTypeLegend(i);
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
    QVERIFY(figure.boundingRect().width() > size.width() / 6);

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
    // 0.25w + 2p = 48.5 + 6, truncated after the sum.
    QTest::newRow("parallelogramLeft")
        << Shape::parallelogram_left << points({54, 3, 196, 3, 145, 116, 3, 116});
    // 2w/3 is an integer division (129) before p is added.
    QTest::newRow("trapezeTop") << Shape::trapeze_top << points({132, 3, 64, 3, 3, 116, 196, 116});
}

void TestResources::polygonPointsFollowTable() {
    QFETCH(Shape, type);
    QFETCH(QPolygon, expected);
    QCOMPARE(ShapeGeometry::kindOf(type), ShapeGeometry::Kind::polygon);
    QCOMPARE(ShapeGeometry::polygon(type, kRect, kPen), expected);
}

void TestResources::divisionAndEqualityParts() {
    const QRectF shapeRect(3, 3, 194, 114);
    QCOMPARE(ShapeGeometry::divisionDot(shapeRect, 1), QRect(77, 79, 38, 22));
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
    QCOMPARE(ShapeGeometry::penStyle(Definitions::kOutlineStyle::dashDotDot), Qt::DashDotDotLine);
}

void TestResources::unknownFigureDrawsNothing() {
    QCOMPARE(ShapeGeometry::kindOf(Definitions::kShapeCount), ShapeGeometry::Kind::none);
    const QImage image =
        paintFigure(static_cast<Shape>(Definitions::kShapeCount), QSizeF(60, 40), 2, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(qAlpha(image.pixel(x, y)), 0);
}

SELVORA_TEST_MAIN(TestResources)
#include "tst_resources.moc"
