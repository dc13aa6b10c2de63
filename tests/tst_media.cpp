#include "document/Media.h"
#include "document/Sync.h"
#include "support/MediaFixtures.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using selvora::Definitions;
using selvora::document::Media;
using selvora::document::Sync;
using Properties = QHash<QString, QString>;

namespace {
Media* make(Definitions::kMediaType type, const QString& path = QString(),
            const Properties& properties = {}) {
    return new Media(path, type, -1, QString(), properties, QString());
}
} // namespace

// Media carry their geometry as percent text in a five-character form; the tests hold the
// form, the defaults of each type and the signals that panels and history rely on.
class TestMedia : public QObject {
    Q_OBJECT
private slots:
    void numberForm_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("stored");
        QTest::newRow("third") << "width"
                               << "33.333333"
                               << "33.33";
        QTest::newRow("no rounding at the cut") << "left"
                                                << "16.666666"
                                                << "16.66";
        QTest::newRow("small") << "top"
                               << "8.333333"
                               << "8.333";
        QTest::newRow("exponent form keeps five characters") << "left"
                                                             << "1.5e-05"
                                                             << "1.5e-";
        QTest::newRow("whole") << "height"
                               << "100"
                               << "100";
        QTest::newRow("not a number") << "width"
                                      << "abc"
                                      << "0";
        QTest::newRow("negative") << "left"
                                  << "-12.3456"
                                  << "-12.3";
    }
    void numberForm() {
        QFETCH(QString, key);
        QFETCH(QString, given);
        QFETCH(QString, stored);
        QScopedPointer<Media> media(make(Definitions::kMediaType::text));
        media->setProperties({{key, given}});
        QCOMPARE(media->getProperties().value(key), stored);
    }

    void pixelForms() {
        QScopedPointer<Media> media(make(Definitions::kMediaType::text));
        media->setWidthPx(100, 300);
        QCOMPARE(media->getWidth(), QString("33.33"));
        media->setWidthPx(300, 300);
        QCOMPARE(media->getWidth(), QString("100"));
        QCOMPARE(media->getWidthPx(300), 300.0);
        media->setPropertiesPx({{"width", "300"}, {"left", "150"}, {"top", "45"}}, 300, 90);
        QCOMPARE(media->getWidth(), QString("100"));
        QCOMPARE(media->getLeft(), QString("50"));
        QCOMPARE(media->getTop(), QString("50"));
        // Pixels in the hash are cut to five characters as well.
        media->setProperties({{"left", "33.33"}});
        QCOMPARE(media->getPropertiesPx(720, 405).value("left"), QString("239.9"));

        QScopedPointer<Media> video(make(Definitions::kMediaType::video));
        QCOMPARE(video->getPropertiesPx(720, 405).value("width"), QString("720"));
        QCOMPARE(video->getPropertiesPx(720, 405).value("height"), QString("405"));
    }

    void defaultsByType_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("top");
        QTest::addColumn<QString>("width");
        QTest::addColumn<QString>("height");
        QTest::newRow("video") << 0 << "0"
                               << "0"
                               << "100"
                               << "100";
        // 120 x 117 pixels on 720 x 405, centred from the pixel values.
        QTest::newRow("shape") << 3 << "41.67"
                               << "35.43"
                               << "16.66"
                               << "28.88";
        QTest::newRow("text") << 2 << "33.33"
                              << "44.07"
                              << "33.33"
                              << "11.60";
        QTest::newRow("audio has no geometry") << 4 << ""
                                               << ""
                                               << ""
                                               << "";
    }
    void defaultsByType() {
        QFETCH(int, type);
        QFETCH(QString, left);
        QFETCH(QString, top);
        QFETCH(QString, width);
        QFETCH(QString, height);
        QScopedPointer<Media> media(make(Definitions::getkMediaType(type)));
        QCOMPARE(media->getLeft(), left);
        QCOMPARE(media->getTop(), top);
        QCOMPARE(media->getWidth(), width);
        QCOMPARE(media->getHeight(), height);
        QCOMPARE(media->getTransparency(), QString("0"));
        QCOMPARE(media->getLayer(), QString());
        QCOMPARE(media->getRegionId(), QString(""));
        QVERIFY(!media->getRegionId().isNull());
    }

    void shapeAndTextLook() {
        QScopedPointer<Media> shape(make(Definitions::kMediaType::shape));
        QCOMPARE(shape->getColorFill(), QString("#ff7f00"));
        QCOMPARE(shape->getColorOutline(), QString("#000000"));
        QCOMPARE(shape->getWidthOutline(), QString("1"));
        QCOMPARE(shape->getStyleOutline(), QString("0"));
        QCOMPARE(shape->getFontSize(), QString("14"));
        QCOMPARE(shape->getTextAlignment(), QString("1"));
        QCOMPARE(shape->getFontFamily(), QFont("Arial").toString());
        QScopedPointer<Media> text(make(Definitions::kMediaType::text));
        QCOMPARE(text->getColorFont(), QString("#000000"));
        QVERIFY(text->getColorFill().isNull());
        QCOMPARE(text->getLabel(), QString::fromUtf8("Mídia_%1").arg(text->getId() + 1));
    }

    void pictureRule_data() {
        QTest::addColumn<QSize>("file");
        QTest::addColumn<QString>("width");
        QTest::addColumn<QString>("height");
        QTest::addColumn<QString>("left");
        QTest::newRow("fits: natural size") << QSize(360, 81) << "50"
                                            << "20"
                                            << "25";
        QTest::newRow("tall: default height") << QSize(100, 810) << "2.005"
                                              << "28.88"
                                              << "48.99";
        QTest::newRow("wide: a sixth of the canvas") << QSize(1440, 2000) << "16.66"
                                                     << "41.13"
                                                     << "41.67";
    }
    void pictureRule() {
        QFETCH(QSize, file);
        QFETCH(QString, width);
        QFETCH(QString, height);
        QFETCH(QString, left);
        QTemporaryDir dir;
        const QString path = selvora::test::MediaFixtures::makeImage(dir.path(), "p.png", file);
        QScopedPointer<Media> media(make(Definitions::kMediaType::image, path));
        QCOMPARE(media->getWidth(), width);
        QCOMPARE(media->getHeight(), height);
        QCOMPARE(media->getLeft(), left);
    }

    void suppliedPropertiesOverrideDefaults() {
        QScopedPointer<Media> media(
            make(Definitions::kMediaType::shape, QString(),
                 {{"colorFill", "#123456"}, {"width", "12.5"}, {"regionId", "7"}, {"layer", "3"}}));
        QCOMPARE(media->getColorFill(), QString("#123456"));
        QCOMPARE(media->getWidth(), QString("12.5"));
        QCOMPARE(media->getLayer(), QString("3"));
        // A sync can never move a media into or out of a region.
        QCOMPARE(media->getRegionId(), QString(""));
    }

    void setterSignals_data() {
        QTest::addColumn<QString>("setter");
        QTest::addColumn<int>("newOnly");
        QTest::addColumn<int>("withId");
        QTest::addColumn<int>("modified");
        QTest::newRow("layer") << "layer" << 1 << 0 << 0;
        QTest::newRow("transparency") << "transparency" << 1 << 1 << 0;
        QTest::newRow("top") << "top" << 1 << 1 << 0;
        QTest::newRow("hover") << "hover" << 1 << 1 << 1;
        QTest::newRow("wording") << "wording" << 1 << 1 << 1;
        QTest::newRow("region") << "regionId" << 1 << 1 << 1;
        QTest::newRow("geometry") << "geometry" << 1 << 0 << 1;
        QTest::newRow("properties") << "properties" << 1 << 1 << 0;
    }
    void setterSignals() {
        QFETCH(QString, setter);
        QFETCH(int, newOnly);
        QFETCH(int, withId);
        QFETCH(int, modified);
        QScopedPointer<Media> media(make(Definitions::kMediaType::shape));
        QSignalSpy one(media.data(),
                       QOverload<QHash<QString, QString>>::of(&Media::propertiesChanged));
        QSignalSpy three(media.data(),
                         QOverload<int, QHash<QString, QString>, QHash<QString, QString>>::of(
                             &Media::propertiesChanged));
        QSignalSpy dirty(media.data(), &Media::projectModified);
        QSignalSpy shape(media.data(), &Media::geometryChanged);
        const QString value = "5";
        bool ok = true;
        if (setter == "layer")
            ok = media->setLayer(value);
        else if (setter == "transparency")
            ok = media->setTransparency(value);
        else if (setter == "top")
            ok = media->setTop(value);
        else if (setter == "hover")
            ok = media->setHover(value);
        else if (setter == "wording")
            ok = media->setWording(value);
        else if (setter == "regionId")
            ok = media->setRegionId(value);
        else if (setter == "geometry")
            ok = media->setGeometry(value);
        else
            media->setProperties({{"left", "1"}, {"wording", "x"}});
        QVERIFY(ok);
        QCOMPARE(one.count(), newOnly);
        QCOMPARE(three.count(), withId);
        QCOMPARE(dirty.count(), modified);
        QCOMPARE(shape.count(), setter == "geometry" ? 1 : 0);
        if (withId) {
            const auto old = three.at(0).at(1).value<QHash<QString, QString>>();
            const auto now = three.at(0).at(2).value<QHash<QString, QString>>();
            QVERIFY(old != now);
        }
    }

    void nullStringsAreRefused() {
        QScopedPointer<Media> media(make(Definitions::kMediaType::text));
        QSignalSpy any(media.data(),
                       QOverload<QHash<QString, QString>>::of(&Media::propertiesChanged));
        QVERIFY(!media->setHover(QString()));
        QVERIFY(!media->setWidth(QString()));
        QVERIFY(!media->setLayer(QString()));
        QVERIFY(!media->setLabel(QString()));
        QCOMPARE(any.count(), 0);
        QVERIFY(media->setHover(QString("")));
    }

    void syncCarriesOnlyItsKeys() {
        // A set sync made from a text media changes geometry, never the wording or colours.
        QScopedPointer<Media> media(make(Definitions::kMediaType::text));
        media->setWording("olá");
        Sync sync(-1, 0, Definitions::kSyncType::set, media->getId(), true);
        auto properties = media->getProperties();
        properties["wording"] = "other";
        properties["colorFont"] = "#ffffff";
        properties["left"] = "10";
        sync.setProperties(properties);
        media->setProperties(sync.getProperties());
        QCOMPARE(media->getWording(), QString::fromUtf8("olá"));
        QCOMPARE(media->getColorFont(), QString("#000000"));
        QCOMPARE(media->getLeft(), QString("10"));
    }

    void syncPixelFormsAreNotCut() {
        Sync sync(-1, 0, Definitions::kSyncType::set, 0, true);
        sync.setLeftPx(100, 300);
        QCOMPARE(sync.getLeft(), QString("33.3333"));
        QSignalSpy withId(&sync,
                          QOverload<int, QHash<QString, QString>, QHash<QString, QString>>::of(
                              &Sync::propertiesChanged));
        QVERIFY(sync.setLeft("4"));
        QCOMPARE(withId.count(), 0); // the left setter has no form with the id
        QVERIFY(sync.setTop("4"));
        QCOMPARE(withId.count(), 1);
        sync.setProperties({{"url", "http://a"}});
        QCOMPARE(sync.getUrl(), QString("http://a"));
        QCOMPARE(sync.getLeft(), QString("4"));
    }
};

SELVORA_TEST_MAIN(TestMedia)
#include "tst_media.moc"
