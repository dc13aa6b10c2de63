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
        auto row = [](const char* name, const char* key, const char* given, const char* stored) {
            QTest::newRow(name) << QString(key) << QString(given) << QString(stored);
        };
        row("third", "width", "33.333333", "33.33");
        row("small", "top", "8.333333", "8.333");
        row("exponent form keeps five characters", "left", "1.5e-05", "1.5e-");
        row("not a number", "width", "abc", "0");
        row("negative", "left", "-12.3456", "-12.3");
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
        media->setPropertiesPx({{"width", "300"}, {"left", "150"}, {"top", "45"}}, 300, 90);
        QCOMPARE(media->getWidth(), QString("100"));
        QCOMPARE(media->getLeft(), QString("50"));
        QCOMPARE(media->getTop(), QString("50"));
        // Pixels in the hash are cut to five characters as well.
        media->setProperties({{"left", "33.33"}});
        QCOMPARE(media->getPropertiesPx(720, 405).value("left"), QString("239.9"));

        QScopedPointer<Media> video(make(Definitions::kMediaType::video));
        QCOMPARE(video->getPropertiesPx(720, 405).value("width"), QString("720"));
    }

    void defaultsByType_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("geometry");
        QTest::newRow("video") << 0 << QStringList{"0", "0", "100", "100"};
        // 120 x 117 pixels on 720 x 405, centred from the pixel values.
        QTest::newRow("shape") << 3 << QStringList{"41.67", "35.43", "16.66", "28.88"};
        QTest::newRow("text") << 2 << QStringList{"33.33", "44.07", "33.33", "11.60"};
        QTest::newRow("audio has no geometry") << 4 << QStringList{"", "", "", ""};
    }
    void defaultsByType() {
        QFETCH(int, type);
        QFETCH(QStringList, geometry);
        QScopedPointer<Media> media(make(Definitions::getkMediaType(type)));
        QCOMPARE(
            (QStringList{media->getLeft(), media->getTop(), media->getWidth(), media->getHeight()}),
            geometry);
    }

    void pictureRule_data() {
        QTest::addColumn<QSize>("file");
        QTest::addColumn<QStringList>("geometry"); // width, height, left
        QTest::newRow("fits: natural size") << QSize(360, 81) << QStringList{"50", "20", "25"};
        QTest::newRow("tall: default height")
            << QSize(100, 810) << QStringList{"2.005", "28.88", "48.99"};
        QTest::newRow("wide: a sixth of the canvas")
            << QSize(1440, 2000) << QStringList{"16.66", "41.13", "41.67"};
    }
    void pictureRule() {
        QFETCH(QSize, file);
        QFETCH(QStringList, geometry);
        QTemporaryDir dir;
        const QString path = selvora::test::MediaFixtures::makeImage(dir.path(), "p.png", file);
        QScopedPointer<Media> media(make(Definitions::kMediaType::image, path));
        QCOMPARE((QStringList{media->getWidth(), media->getHeight(), media->getLeft()}), geometry);
    }

    void suppliedPropertiesOverrideDefaults() {
        QScopedPointer<Media> media(
            make(Definitions::kMediaType::shape, QString(),
                 {{"colorFill", "#123456"}, {"width", "12.5"}, {"regionId", "7"}, {"layer", "3"}}));
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
        QTest::newRow("hover") << "hover" << 1 << 1 << 1;
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
        else if (setter == "hover")
            ok = media->setHover(value);
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
    }
};

SELVORA_TEST_MAIN(TestMedia)
#include "tst_media.moc"
