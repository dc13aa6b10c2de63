#include "document/Document.h"
#include "document/Media.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "slideView/SlideListTree.h"
#include "slideView/SlideListTreeRoot.h"
#include "spatialview/LayoutItem.h"
#include "spatialview/RegionItem.h"
#include "spatialview/SpatialView.h"
#include "spatialview/TemplateCommands.h"
#include "spatialview/WordingItem.h"
#include "support/CanvasTest.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"
#include "wizards/TemplateWizard.h"

#include <QAction>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMenu>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Region;
using document::Scene;
using document::Template;
using spatialview::RegionItem;
using spatialview::SpatialView;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

QString text(const QRectF& r) {
    return QString("(%1, %2, %3 x %4)").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

} // namespace

// The regions of templates on the canvas: their placeholders, filling them, emptying them, and
// relating them.
class TestRegions : public CanvasTest {
    Q_OBJECT
private:
    slideView::SlideListTreeRoot* row() const {
        return bench->panel<slideView::SlideListTree>()->rootOf(scene()->getId());
    }
    // Layout n (from 1) from the scene row's palette; returns the new template.
    Template* placeLayout(int number) {
        const QList<int> before = scene()->getAllTemplates();
        row()->getLayoutActions().at(number - 1)->trigger();
        const QList<int> after = scene()->getAllTemplates();
        return after.size() > before.size() ? doc->getTemplate(after.last()) : nullptr;
    }
    RegionItem* itemOf(const Region* region) const {
        return dynamic_cast<RegionItem*>(
            canvas()->getItem(SpatialView::regionKey(region->getId(), region->getTemplateId())));
    }
    Region* regionOfOrder(const Template* templ, int order) const {
        for (Region* region : templ->getAllRegions()) {
            if (region->getOrder() == order)
                return region;
        }
        return nullptr;
    }
    void closeWizard() {
        if (wizards::TemplateWizard* wizard = row()->getTemplateWizard())
            wizard->reject();
    }

private slots:
    void initTestCase() { QVERIFY(openBench()); }
    void init() { QVERIFY(newProject()); }
    void cleanupTestCase() { bench.reset(); }

    // Each of the 18 layouts from the palette stands on the canvas at its table's pixels.
    void layoutsOnTheCanvas_data() {
        QTest::addColumn<int>("layout");
        for (int n = 1; n <= Definitions::kLayoutCount; ++n)
            QTest::addRow("layout%d", n) << n;
    }
    void layoutsOnTheCanvas() {
        QFETCH(int, layout);
        Template* templ = placeLayout(layout);
        QVERIFY(templ);
        const auto& table =
            spatialview::LayoutItem::regions(static_cast<Definitions::kLayoutType>(layout - 1));
        QCOMPARE(templ->countRegion(), table.size());
        for (const auto& slot : table) {
            const QRectF expected(slot.left * 720, slot.top * 405, slot.width * 720,
                                  slot.height * 405);
            Region* region = regionOfOrder(templ, slot.order);
            QVERIFY(region);
            RegionItem* item = itemOf(region);
            QVERIFY2(item, qPrintable(QString("no placeholder for slot %1").arg(slot.order)));
            QVERIFY(item->isVisible() && item->getEnable());
            const QRectF shown(item->pos(), item->boundingRect().size());
            QVERIFY2(near(shown, expected), qPrintable(text(shown) + " != " + text(expected)));
        }
    }

    // A layout over a scene that has media, a second and third template, a filled region whose
    // media is removed, and a template taken off by "Deletar" on its region.
    void badInputKeepsTheCanvasWhole() {
        const QString file = MediaFixtures::makeImage(files->path(), "q.png", QSize(60, 60));
        Media* before = doc->createMedia(scene(), file, MediaType::image, QString(), QString());
        QVERIFY(before);
        QVERIFY(placeLayout(1));
        QVERIFY(canvas()->getItem(SpatialView::mediaKey(before->getId())));
        Template* second = placeLayout(5);
        QVERIFY(second);
        QTRY_VERIFY(row()->getTemplateWizard() && row()->getTemplateWizard()->isVisible());
        closeWizard();
        // The third through the document, as any command may ask for a layout.
        doc->insertLayout(Definitions::kLayoutType::layout13);
        QTRY_VERIFY(row()->getTemplateWizard() && row()->getTemplateWizard()->isVisible());
        closeWizard();

        // A text put in by the region's button; its removal offers the region again.
        RegionItem* item = itemOf(regionOfOrder(second, 3));
        item->addText();
        const int textId = item->getMediaId();
        QVERIFY(!item->isVisible());
        auto* text = dynamic_cast<spatialview::WordingItem*>(
            canvas()->getItem(SpatialView::mediaKey(textId)));
        QVERIFY(text);
        QCOMPARE(text->getText(), QString("Duplo clique para editar"));
        QVERIFY(scene()->removeMedia(textId));
        QVERIFY(item->isVisible() && item->getEnable());

        const int countRegions = scene()->getCountRegions();
        auto* commands = canvas()->templateCommands();
        QVERIFY(
            !commands->removeTemplateOf(canvas()->getItem(SpatialView::mediaKey(before->getId()))));
        QVERIFY(commands->removeTemplateOf(item));
        QCOMPARE(scene()->getCountRegions(), countRegions - second->countRegion());
        QVERIFY(!scene()->getAllTemplates().contains(second->getId()));
        QVERIFY(canvas()->getItem(SpatialView::mediaKey(before->getId())));
    }

    // With a region in focus the context menu offers the other templates; a click on a
    // thumbnail of the dialog ties the two regions both ways.
    void relatingRegions() {
        Template* first = placeLayout(7);
        Template* second = placeLayout(8);
        QVERIFY(first && second);
        closeWizard();
        auto* commands = canvas()->templateCommands();
        Region* mine = regionOfOrder(first, 2);
        commands->prepareContextMenu(itemOf(mine));
        QVERIFY(commands->relationMenuAction()->isVisible());
        QCOMPARE(commands->relationMenuAction()->text(), QString("Relacionar região"));
        QAction* offer = nullptr;
        for (QAction* action : commands->relationMenu()->actions()) {
            if (action->isVisible()) {
                offer = action;
            }
        }
        QVERIFY(offer);
        QCOMPARE(offer->text(), second->getLabel());

        Region* theirs = regionOfOrder(second, 3);
        ModalAnswerer answerer;
        answerer.answerWith([&](QWidget* dialog) {
            auto* view = dialog->findChild<QGraphicsView*>();
            // No window manager activates the dialog here; its scene takes focus only when
            // active.
            QApplication::setActiveWindow(dialog);
            if (!QTest::qWaitFor([view] { return view->scene()->isActive(); }, 5000))
                qWarning("the dialog never became active");
            const double w = Definitions::getViewWidth() / 3;
            const double h = Definitions::getViewHeight() / 3;
            const QPointF at(theirs->getLeftPx(w) + theirs->getWidthPx(w) / 2,
                             theirs->getTopPx(h) + theirs->getHeightPx(h) / 2);
            ViewInput::click(view, at);
        });
        offer->trigger();
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(mine->getRelatedRegion(), QString::number(theirs->getId()));
        QCOMPARE(mine->getRelatedTemplate(), QString::number(second->getId()));
    }
};

SELVORA_TEST_MAIN(TestRegions)
#include "tst_regions.moc"
