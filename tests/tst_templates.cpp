#include "document/Document.h"
#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "spatialview/LayoutItem.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using selvora::Definitions;
using selvora::document::Document;
using selvora::document::Media;
using selvora::document::Region;
using selvora::document::Scene;
using selvora::document::Sync;
using selvora::document::Template;

// Templates, their regions, and the eighteen standard layouts.
class TestTemplates : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    Scene* scene = nullptr;

    static QList<int> ordersOf(Template* templ) {
        QList<Region*> regions = templ->getAllRegions();
        std::sort(regions.begin(), regions.end(),
                  [](Region* a, Region* b) { return a->getId() < b->getId(); });
        QList<int> orders;
        for (Region* region : regions)
            orders << region->getOrder();
        return orders;
    }

private slots:
    void init() {
        doc = Document::instance();
        doc->newProject();
        scene = doc->getScene(-1);
        Scene::updateCountRegions(-scene->getCountRegions());
    }

    void layouts_data() {
        QTest::addColumn<int>("layout");
        QTest::addColumn<QList<int>>("orders");
        QTest::newRow("1") << 0 << QList<int>{2, 1};
        QTest::newRow("2") << 1 << QList<int>{1, 2};
        QTest::newRow("3") << 2 << QList<int>{1, 8};
        QTest::newRow("4") << 3 << QList<int>{1, 8};
        QTest::newRow("5") << 4 << QList<int>{4, 2, 3, 1, 5};
        QTest::newRow("6") << 5 << QList<int>{4, 2, 3, 1, 5};
        QTest::newRow("7") << 6 << QList<int>{2, 1, 3};
        QTest::newRow("8") << 7 << QList<int>{2, 1, 3};
        QTest::newRow("9") << 8 << QList<int>{3, 1, 4, 2};
        QTest::newRow("10") << 9 << QList<int>{3, 1, 4, 2};
        QTest::newRow("11") << 10 << QList<int>{4, 1, 2, 3};
        QTest::newRow("12") << 11 << QList<int>{4, 1, 6, 7};
        QTest::newRow("13") << 12 << QList<int>{4, 1, 5, 6, 7, 8, 9, 10, 11, 12};
        QTest::newRow("14") << 13 << QList<int>{4, 1, 5, 6, 7, 8, 9, 10, 11, 12};
        QTest::newRow("15") << 14 << QList<int>{4, 1, 2, 3};
        QTest::newRow("16") << 15 << QList<int>{4, 1};
        QTest::newRow("17") << 16 << QList<int>{4, 1, 2, 3};
        QTest::newRow("18") << 17 << QList<int>{4, 1, 2, 3};
    }
    void layouts() {
        QFETCH(int, layout);
        QFETCH(QList<int>, orders);
        Template* templ = doc->createTemplate(scene);
        doc->insertStandardLayouts(templ, static_cast<Definitions::kLayoutType>(layout));
        QCOMPARE(templ->countRegion(), orders.size());
        QCOMPARE(ordersOf(templ), orders);
        // Regions are stacked in creation order, above every region before them.
        QList<Region*> stacked = templ->getAllRegionsOrderLayer();
        QCOMPARE(stacked.size(), orders.size());
        for (int i = 0; i < stacked.size(); ++i)
            QCOMPARE(stacked.at(i)->getLayer().toInt(), i + 1);
        QCOMPARE(scene->getCountRegions(), orders.size());
        for (Region* region : stacked) {
            const double right = region->getLeft().toDouble() + region->getWidth().toDouble();
            const double bottom = region->getTop().toDouble() + region->getHeight().toDouble();
            QVERIFY2(right <= 100.05 && bottom <= 100.05, qPrintable(region->getLabel()));
        }
    }

    void layoutGeometryOnTheReferenceCanvas() {
        Template* templ = doc->createTemplate(scene);
        doc->insertStandardLayouts(templ, Definitions::kLayoutType::layout1);
        Region* title = nullptr;
        for (Region* region : templ->getAllRegions()) {
            if (region->getOrder() == 2)
                title = region;
        }
        QVERIFY(title);
        QCOMPARE(title->getLeft(), QString("3.33"));
        QCOMPARE(title->getWidth(), QString("93.34"));
        QCOMPARE(title->getHeight(), QString("16.67"));
        QVERIFY(qAbs(title->getLeftPx(720) - 24) < 0.1);
    }

    void regionLayersAcrossTemplates() {
        Template* first = doc->createTemplate(scene);
        Region* a = doc->createRegion(first);
        Region* b = doc->createRegion(first);
        QCOMPARE(a->getLayer(), QString("1"));
        QCOMPARE(b->getLayer(), QString("2"));
        Template* second = doc->createTemplate(scene);
        Region* c = doc->createRegion(second);
        QCOMPARE(c->getLayer(), QString("3"));
        QCOMPARE(c->getLabel(), QString::fromUtf8("Região_%1").arg(c->getId() + 1));
        QCOMPARE(second->getRegion(99999), c);
        QVERIFY(!doc->createTemplate(scene)->getRegion(-1));
    }

    void regionQueriesAndRemoval() {
        Template* templ = doc->createTemplate(scene);
        doc->insertStandardLayouts(templ, Definitions::kLayoutType::layout17);
        QVERIFY(templ->hasRegionOrder(2));
        QVERIFY(!templ->hasRegionOrder(7));
        Region* region = templ->getAllRegions().first();
        QSignalSpy removed(templ, &Template::regionRemovedId);
        QVERIFY(templ->removeRegion(region->getId()));
        QCOMPARE(removed.at(0).at(1).toInt(), templ->getId());
        QVERIFY(!templ->hasCurrentRegion());
        QCOMPARE(templ->countRegion(), 3);

        Region* other = templ->getAllRegions().first();
        QVERIFY(other->setRelatedRegion(""));
        QVERIFY(!other->setRelatedRegion(QString()));
        QSignalSpy visible(templ, &Template::regionVisible);
        templ->hideComponents();
        QCOMPARE(visible.count(), 3);
        QCOMPARE(visible.at(0).at(1).toBool(), false);
    }

    void regionMediaFollowTheTemplate() {
        scene->setTotalTime(30);
        Template* templ = doc->createTemplate(scene);
        Region* region = doc->createRegion(templ);
        doc->insertTemplateScene(templ, scene);
        Media* media = doc->createMedia(scene, "", Definitions::kMediaType::text, "", "", -1);
        region->setMediaId(media->getId());
        QVERIFY(doc->createSync(scene, templ->getId(), false, Definitions::kSyncType::stop, 20));
        Sync* stop = scene->getSync(Definitions::kSyncType::stop, media->getId(), true);
        QVERIFY(stop);
        QCOMPARE(stop->getTime(), 20);
        QVERIFY(scene->hasSync(Definitions::kSyncType::stop, templ->getId(), false));

        QSignalSpy shown(scene, &Scene::templateSyncType);
        scene->setCurrentTime(25, false);
        scene->resetExecuteSyncs();
        QCOMPARE(shown.last().at(1).value<Definitions::kSyncType>(), Definitions::kSyncType::stop);
        QVERIFY(!scene->mediaActivate(templ->getId(), 25, false));
    }

    void relations() {
        Template* a = doc->createTemplate(scene);
        Template* b = doc->createTemplate(scene);
        a->addRelation(b->getId(), Definitions::kTemplateType::templateA);
        b->addRelation(a->getId(), Definitions::kTemplateType::templateB);
        QCOMPARE(a->getRelationsTemplations(), QList<int>{b->getId()});
        QCOMPARE(b->getRelationsTypes(),
                 QList<Definitions::kTemplateType>{Definitions::kTemplateType::templateB});
        QCOMPARE(doc->getTemplate(a->getId()), a);
        QCOMPARE(a->getScene(), scene);
    }
};

SELVORA_TEST_MAIN(TestTemplates)
#include "tst_templates.moc"
