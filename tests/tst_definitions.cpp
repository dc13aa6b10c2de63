#include "app/Definitions.h"
#include "support/TestMain.h"

#include <functional>

using selvora::Definitions;

// The vocabulary as a damaged or old project file meets it: unknown keys and numbers fall
// through to fixed values, and every size follows the screen.
class TestDefinitions : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { Definitions::setScreenSizeOverride(QSize()); }

    void unknownKeysFallThrough_data() {
        QTest::addColumn<QString>("enumeration");
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("expected");
        auto row = [](const char* name, const char* enumeration, const char* key, int expected) {
            QTest::newRow(name) << QString(enumeration) << QString(key) << expected;
        };
        row("media", "media", "movie", 2);
        row("shape star", "shape", "star", 50);
        row("layout", "layout", "layout13", 10);
        row("hover", "hover", "spin", 8);
        row("button", "button", "red", 0x1000015);
        row("text align", "textAlign", "middle", 2);
        row("outline style", "outlineStyle", "Continuo", 2);
        row("resizing misspelt key", "resizing", "spatailResizingMedia", 0);
        row("resizing region", "resizing", "spatialResizingRegion", 1);
        row("keys are case sensitive", "sync", "STOP", 1);
    }
    void unknownKeysFallThrough() {
        QFETCH(QString, enumeration);
        QFETCH(QString, key);
        QFETCH(int, expected);
        QCOMPARE(fromKey(enumeration, key), expected);
    }

    void exactKeys() {
        QCOMPARE(Definitions::getkSyncTypeLegend(4), QString("goto"));
        QCOMPARE(Definitions::getkShapeTypeLegend(51), QString("balloonThought4"));
        QCOMPARE(Definitions::getkOutlineStyleLegend(4), QString::fromUtf8("1 traço 2 pontos"));
        QCOMPARE(Definitions::getkHoverTypeLegendBr(7), QString::fromUtf8("avançar"));
        QCOMPARE(Definitions::getkButtonTypeLegendBr(0x1000012), QString("Seta para esquerda"));
        QCOMPARE(Definitions::getkMediaStatusLegend(1), QString("Midia virtual."));
        QCOMPARE(Definitions::getkMediaStatusLegend(7), QString::fromUtf8("Tipo não definido."));
        QCOMPARE(Definitions::getkMediaStatus(5), Definitions::kMediaStatus::undefined);
    }

    void numbersOutOfRange_data() {
        QTest::addColumn<QString>("enumeration");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("expected");
        QTest::addColumn<QString>("legend");
        QTest::newRow("shape 52") << "shape" << 52 << 0 << "rectangle";
        QTest::newRow("layout 12 has no key") << "layout" << 12 << 0 << "layout1";
        QTest::newRow("hover 10") << "hover" << 10 << 0 << "";
        QTest::newRow("sync 7") << "sync" << 7 << 1 << "set";
        QTest::newRow("action 14") << "action" << 14 << 0 << "createScene";
        QTest::newRow("align 3") << "textAlign" << 3 << 4 << "";
        QTest::newRow("align -5") << "textAlign" << -5 << 0 << "";
        QTest::newRow("button 10") << "button" << 10 << 50 << "";
        QTest::newRow("button 0x1000016") << "button" << 0x1000016 << 0x1000014 << "";
        QTest::newRow("resizing 5") << "resizing" << 5 << 0 << "";
    }
    void numbersOutOfRange() {
        QFETCH(QString, enumeration);
        QFETCH(int, number);
        QFETCH(int, expected);
        QFETCH(QString, legend);
        QCOMPARE(fromNumber(enumeration, number), expected);
        QCOMPARE(this->legend(enumeration, number), legend);
    }

    void geometryFollowsScreen_data() {
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<QString>("resolution");
        QTest::addColumn<int>("viewWidth");
        QTest::addColumn<int>("viewHeight");
        QTest::addColumn<double>("temporalWidth");
        QTest::newRow("1600x900") << QSize(1600, 900) << "16x9" << 720 << 405 << 396.0;
        // 1.6 in single precision lies just above 1.6.
        QTest::newRow("1920x1200") << QSize(1920, 1200) << "16x10" << 1056 << 594 << 633.0;
        QTest::newRow("1024x768") << QSize(1024, 768) << "4x3" << 409 << 230 << 81.0;
        QTest::newRow("1280x1024 has none") << QSize(1280, 1024) << "" << 768 << 432 << 460.0;
    }
    void geometryFollowsScreen() {
        QFETCH(QSize, screen);
        QFETCH(QString, resolution);
        QFETCH(int, viewWidth);
        QFETCH(int, viewHeight);
        QFETCH(double, temporalWidth);
        Definitions::setScreenSizeOverride(screen);
        QCOMPARE(Definitions::getScreenResolution(), resolution);
        QCOMPARE(Definitions::getScreenResolution().isNull(), resolution.isEmpty());
        QCOMPARE(Definitions::getViewWidth(), viewWidth);
        QCOMPARE(Definitions::getViewHeight(), viewHeight);
        QCOMPARE(Definitions::getTemporalViewWidth(), temporalWidth);
    }

    void referenceScreenSizes() {
        // The display of the test run is the reference screen.
        QCOMPARE(Definitions::getScreenWidth(), 1600.0);
        QCOMPARE(Definitions::getScreenHeight(), 900.0);
        QCOMPARE(Definitions::getMediaWidth(Definitions::kMediaType::video), 720);
        QCOMPARE(Definitions::getMediaWidth(Definitions::kMediaType::text), 240);
        QCOMPARE(Definitions::getMediaHeight(Definitions::kMediaType::text), 47);
        QCOMPARE(Definitions::getMediaWidth(Definitions::kMediaType::shape), 120);
        QCOMPARE(Definitions::getMediaHeight(Definitions::kMediaType::image), 117);
        QCOMPARE(Definitions::getButtonWidth(), 64.0);
        QVERIFY(qAbs(Definitions::getButtonHeight() - 58.5728) < 1e-9);
        QCOMPARE(Definitions::getPreviewHeight(), 900.0);
        QCOMPARE(Definitions::getTemporalViewHeight(), 70.0);
        Definitions::setScreenSizeOverride(QSize(3200, 1800));
        QCOMPARE(Definitions::getLibraryItemWidth(), 340.0);
        QCOMPARE(Definitions::getFeatureHeight(), 600.0);
    }

private:
    // Each enumeration's three conversions, reached by a name in the data rows.
    struct Conversions {
        std::function<int(const QString&)> fromKey;
        std::function<int(int)> fromNumber;
        std::function<QString(int)> legend;
    };
    template <typename E>
    static Conversions conversions(E (*byKey)(const QString&), E (*byNumber)(int),
                                   QString (*legend)(int)) {
        return {[byKey](const QString& key) { return int(byKey(key)); },
                [byNumber](int n) { return int(byNumber(n)); }, legend};
    }
    static const Conversions& of(const QString& name) {
        using D = Definitions;
        static const QHash<QString, Conversions> table = {
            {"media", conversions(&D::getkMediaType, &D::getkMediaType, &D::getkMediaTypeLegend)},
            {"shape", conversions(&D::getkShapeType, &D::getkShapeType, &D::getkShapeTypeLegend)},
            {"layout",
             conversions(&D::getkLayoutType, &D::getkLayoutType, &D::getkLayoutTypeLegend)},
            {"hover", conversions(&D::getkHoverType, &D::getkHoverType, &D::getkHoverTypeLegend)},
            {"button",
             conversions(&D::getkButtonType, &D::getkButtonType, &D::getkButtonTypeLegend)},
            {"textType", conversions(&D::getkTextType, &D::getkTextType, &D::getkTextTypeLegend)},
            {"textAlign",
             conversions(&D::getkTextAlign, &D::getkTextAlign, &D::getkTextAlignLegend)},
            {"outlineWidth",
             conversions(&D::getkOutlineWidth, &D::getkOutlineWidth, &D::getkOutlineWidthLegend)},
            {"outlineStyle",
             conversions(&D::getkOutlineStyle, &D::getkOutlineStyle, &D::getkOutlineStyleLegend)},
            {"sync", conversions(&D::getkSyncType, &D::getkSyncType, &D::getkSyncTypeLegend)},
            {"action",
             conversions(&D::getkActionType, &D::getkActionType, &D::getkActionTypeLegend)},
            {"resizing", conversions(&D::getkSpatialResizingType, &D::getkSpatialResizingType,
                                     &D::getkSpatialResizingTypeLegend)},
        };
        return *table.find(name);
    }
    static int fromKey(const QString& e, const QString& key) { return of(e).fromKey(key); }
    static int fromNumber(const QString& e, int n) { return of(e).fromNumber(n); }
    static QString legend(const QString& e, int n) { return of(e).legend(n); }
};

SELVORA_TEST_MAIN(TestDefinitions)
#include "tst_definitions.moc"
