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
#include "support/PictureProbe.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"
#include "support/WindowBench.h"
#include "wizards/TemplateWizard.h"

#include <QAction>
#include <QDialog>
#include <QDragEnterEvent>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMenu>
#include <QMimeData>
#include <QTemporaryDir>

#include <memory>

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

    // Each of the 18 layouts from the palette stands on the canvas at its table's pixels, in the
    // colour of its slot.
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
        const QImage picture = PictureProbe::grab(canvas()->getGraphicsView()->viewport());
        const RegionItem* top = nullptr;
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
            if (!top || item->zValue() > top->zValue())
                top = item;
        }
        // The topmost placeholder shows its slot's colour, at 0.8 over what lies beneath.
        const QColor colour = RegionItem::orderColour(top->getOrder());
        const QRect patch(top->pos().toPoint() + QPoint(3, 3), QSize(4, 4));
        const QColor seen = PictureProbe::mean(picture, patch);
        const auto close = [](int a, int b) { return qAbs(a - b) <= 60; };
        if (!close(seen.red(), colour.red()) || !close(seen.green(), colour.green()) ||
            !close(seen.blue(), colour.blue()))
            QFAIL(qPrintable(
                QString("slot %1 shows %2, not near %3 (%4)")
                    .arg(top->getOrder())
                    .arg(seen.name(), colour.name(), PictureProbe::keep(picture, "layout"))));
    }

    // A picture dropped into a region takes its geometry and times, its placeholder hides; undo
    // takes the picture away and the placeholder is back.
    void dropIntoRegionAndUndo() {
        Template* templ = placeLayout(16);
        QVERIFY(templ);
        Region* region = regionOfOrder(templ, 1);
        RegionItem* item = itemOf(region);
        QVERIFY(item);
        const QString file = MediaFixtures::makeImage(files->path(), "p.png", QSize(50, 40));
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        QGraphicsView* view = canvas()->getGraphicsView();
        dropAt(view, &data, view->mapFromScene(pixels(region).center()));

        QCOMPARE(scene()->getAllMedias().size(), 1);
        Media* media = scene()->getAllMedias().first();
        QCOMPARE(media->getType(), MediaType::image);
        QVERIFY2(near(pixels(media), pixels(region)), qPrintable(text(pixels(media))));
        QCOMPARE(region->getMediaId(), media->getId());
        QVERIFY(!item->isVisible());
        const document::Sync* start = scene()->getSync(SyncType::start, media->getId(), true);
        QVERIFY(start);
        QCOMPARE(start->getTime(),
                 scene()->getSync(SyncType::start, templ->getId(), false)->getTime());

        for (int i = 0; i < 12 && !scene()->getAllMedias().isEmpty(); ++i)
            doc->undoAction();
        QVERIFY(scene()->getAllMedias().isEmpty());
        QCOMPARE(region->getMediaId(), -1);
    }

    // A layout over a scene that has media, a second and third template, a filled region whose
    // media is removed, and a template taken off by "Deletar" on its region.
    void badInputKeepsTheCanvasWhole() {
        const QString file = MediaFixtures::makeImage(files->path(), "q.png", QSize(60, 60));
        Media* before = doc->createMedia(scene(), file, MediaType::image, QString(), QString());
        QVERIFY(before);
        Template* first = placeLayout(1);
        QVERIFY(first);
        QVERIFY(canvas()->getItem(SpatialView::mediaKey(before->getId())));
        QVERIFY(!row()->getTemplateWizard());
        Template* second = placeLayout(5);
        QVERIFY(second);
        QTRY_VERIFY(row()->getTemplateWizard() && row()->getTemplateWizard()->isVisible());
        closeWizard();
        // The third through the document, as any command may ask for a layout.
        doc->insertLayout(Definitions::kLayoutType::layout13);
        Template* third = doc->getTemplate(scene()->getAllTemplates().last());
        QTRY_VERIFY(row()->getTemplateWizard() && row()->getTemplateWizard()->isVisible());
        closeWizard();

        // A text put in by the region's button; its removal offers the region again.
        RegionItem* item = itemOf(regionOfOrder(second, 3));
        item->addText();
        const int textId = item->getMediaId();
        QVERIFY(textId != -1);
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

    // Two templates related by the wizard over the same span: the slots they share stay blank,
    // the others show; play hides every placeholder and a pause brings the empty ones back.
    void relatedTemplatesBlankSharedSlots() {
        Template* first = placeLayout(1);
        Template* second = placeLayout(16);
        QVERIFY(first && second);
        wizards::TemplateWizard* wizard = row()->getTemplateWizard();
        QVERIFY(wizard);
        wizard->accept();
        QCOMPARE(first->getRelationsTemplations(), QList<int>{second->getId()});
        QVERIFY(!itemOf(regionOfOrder(first, 1))->isVisible());
        QVERIFY(!itemOf(regionOfOrder(second, 1))->isVisible());
        QVERIFY(itemOf(regionOfOrder(first, 2))->isVisible());
        QVERIFY(itemOf(regionOfOrder(second, 4))->isVisible());

        scene()->playScene();
        QTRY_VERIFY(!itemOf(regionOfOrder(first, 2))->isVisible());
        scene()->pauseScene();
        QTRY_VERIFY(itemOf(regionOfOrder(first, 2))->isVisible());
        QVERIFY(!itemOf(regionOfOrder(first, 1))->isVisible());
    }

    // With a region in focus the context menu offers the other templates; a click on a
    // thumbnail of the dialog ties the two regions both ways.
    void relatingRegions() {
        Template* first = placeLayout(7);
        Template* second = placeLayout(8);
        QVERIFY(first && second);
        closeWizard();
        auto* commands = canvas()->templateCommands();
        commands->prepareContextMenu(nullptr);
        QVERIFY(!commands->relationMenuAction()->isVisible());
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
