#include "app/MainWindow.h"
#include "app/ShapePalette.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "spatialview/CanvasCommands.h"
#include "spatialview/ShapeItem.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "spatialview/TextItem.h"
#include "support/CanvasTest.h"
#include "support/MediaFixtures.h"
#include "support/MenuPicker.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"
#include "support/WindowBench.h"

#include <QGraphicsView>
#include <QToolBar>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
using document::Sync;
using spatialview::SpatialResizingMedia;
using spatialview::SpatialView;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {

const QStringList kEntries = {"Definir Inicio da Exibição",
                              "Definir Fim da Exibição",
                              "Criar Elo Automático entre Cenas",
                              "Criar Elo Interativo entre Cenas",
                              "Criar Elo Interativo para Página Web",
                              "Avançar",
                              "Recuar",
                              "Trazer para frente",
                              "Enviar para trás",
                              "Copiar",
                              "Colar",
                              "Editar texto",
                              "Trocar mídia",
                              "Renomear",
                              "Deletar"};

int count(const Scene* scene, int media, SyncType type, int time = -1) {
    int n = 0;
    for (const Sync* sync : scene->getAllSyncsMedia(media, true))
        n += sync->getType() == type && (time < 0 || sync->getTime() == time);
    return n;
}

} // namespace

class TestCanvasCommands : public CanvasTest {
    Q_OBJECT

private:
    QGraphicsView* view() const { return canvas()->getGraphicsView(); }
    QPointF centre(const Media* media) const {
        const SpatialResizingMedia* it = itemOf(media);
        return it->scenePos() + it->getRect().center();
    }
    Media* add(MediaType type, const QColor& color = Qt::red) {
        QString path;
        if (type == MediaType::image)
            path = MediaFixtures::makeImage(files->path(), QString("%1.png").arg(color.name()),
                                            QSize(90, 60), color);
        else if (type == MediaType::video)
            path = MediaFixtures::videoPath();
        Media* media =
            doc->createMedia(scene(), path, type, type == MediaType::shape ? "0" : QString(),
                             type == MediaType::text ? "Olá" : QString());
        if (!media)
            return nullptr;
        // Side by side, so that a click finds each one: the place holds from its start.
        media->setLeft(QString::number(30 * (scene()->countMedia() - 1) % 90));
        media->setTop("5");
        scene()
            ->getSync(SyncType::start, media->getId(), true)
            ->setProperties(media->getProperties());
        seek(scene()->getCurrentTime());
        return media;
    }
    // Right click on a media (focused by a left click first) or on the empty canvas.
    MenuPicker::Seen openMenu(const Media* on, const QString& choice = QString()) {
        MenuPicker picker;
        if (choice.isEmpty())
            picker.dismiss();
        else
            picker.choose({choice});
        // Without a window manager the display may take a popup away as it opens, and the
        // canvas's focus with it, while the focus of the last one comes back: the user would
        // click and right-click again.
        for (int attempt = 0; attempt < 5 && picker.seen().isEmpty(); ++attempt) {
            ViewInput::click(view(), on ? centre(on) : QPointF(3, 400));
            QCoreApplication::sendPostedEvents();
            if (on)
                itemOf(on)->setFocus(Qt::MouseFocusReason);
            else if (QGraphicsItem* focus = canvas()->getSpatialScene()->focusItem())
                focus->clearFocus(); // also the focus kept for when the scene is active again
            ViewInput::contextMenu(view(), on ? centre(on) : QPointF(3, 400));
        }
        return picker.seen().value(0);
    }

private slots:
    void initTestCase() { QVERIFY(openBench()); }
    void init() {
        QVERIFY(newProject());
        scene()->setTotalTime(20);
    }
    void cleanupTestCase() { bench.reset(); }

    void menuEnablesByFocus_data() {
        QTest::addColumn<int>("focus"); // -1: nothing; else a media type
        QTest::addColumn<bool>("copied");
        QTest::addColumn<QStringList>("enabled");
        const QStringList onAnyMedia = {kEntries[0], kEntries[1], kEntries[2], kEntries[3],
                                        kEntries[4], kEntries[5], kEntries[6], kEntries[7],
                                        kEntries[8], kEntries[9], "Renomear",  "Deletar"};
        QTest::newRow("nothing") << -1 << false << QStringList{kEntries[2]};
        QTest::newRow("nothing, a copy waiting") << -1 << true << QStringList{kEntries[2], "Colar"};
        QTest::newRow("image") << int(MediaType::image) << false
                               << onAnyMedia + QStringList{"Trocar mídia"};
        QTest::newRow("text") << int(MediaType::text) << false
                              << onAnyMedia + QStringList{"Editar texto"};
        QTest::newRow("shape") << int(MediaType::shape) << false
                               << onAnyMedia + QStringList{"Editar texto", "Trocar mídia"};
    }
    void menuEnablesByFocus() {
        QFETCH(int, focus);
        QFETCH(bool, copied);
        QFETCH(QStringList, enabled);
        // With nothing in focus, the canvas is empty and the copy comes from another scene.
        Scene* here = scene();
        if (focus < 0)
            doc->setCurrentScene(doc->createScene()->getId(), true);
        Media* image = add(MediaType::image);
        if (focus < 0)
            doc->setCurrentScene(here->getId(), true);
        if (copied)
            doc->addMediaBuffer(image);
        else
            doc->addMediaBuffer(nullptr);
        Media* target = focus < 0                        ? nullptr
                        : focus == int(MediaType::image) ? image
                                                         : add(MediaType(focus));
        const MenuPicker::Seen seen = openMenu(target);
        QCOMPARE(seen.texts, kEntries);
        for (const QString& entry : kEntries)
            QVERIFY2(seen.enabled.value(entry) == enabled.contains(entry), qPrintable(entry));
    }

    // A copy goes to another scene with its look, on the layer after the last, with its link;
    // the paste is one step of history.
    void copyAndPasteBetweenScenes() {
        Media* source = add(MediaType::image);
        source->setTransparency("40");
        QHash<QString, QString> link{{"link", "0"}, {"timeEvent", "3"}, {"key", "49"}, {"url", ""}};
        doc->createSync(scene(), source->getId(), true, SyncType::select, 0, link, -1);
        openMenu(source, "Copiar");

        Scene* second = doc->createScene();
        doc->setCurrentScene(second->getId(), true);
        second->setTotalTime(20);
        seek(4);
        add(MediaType::shape); // the layer to go above
        const int top = second->lastMediaLayer()->getLayer().toInt();
        openMenu(nullptr, "Colar");
        QCOMPARE(second->countMedia(), 2);
        Media* copy = second->getMedia(-1);
        QCOMPARE(copy->getPathStart(), source->getPathStart());
        QCOMPARE(copy->getLayer().toInt(), top + 1);
        QCOMPARE(float(itemOf(copy)->opacity()), 0.6f);
        const Sync* pasted = second->getSync(SyncType::select, copy->getId(), true);
        QVERIFY(pasted);
        QCOMPARE(pasted->getLink(), QString("0"));

        const int copyId = copy->getId();
        doc->undoAction();
        QVERIFY(!second->hasMedia(copyId));
        QVERIFY(!canvas()->getItem(SpatialView::mediaKey(copyId)));
    }

    void layerCommandIsASetAtTheSecond_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("moved");        // index of the media moved, bottom to top
        QTest::addColumn<QList<int>>("order"); // indexes bottom to top afterwards
        QTest::newRow("to front") << 0 << 0 << QList<int>{1, 2, 0};
        QTest::newRow("backward") << 3 << 2 << QList<int>{0, 2, 1};
    }
    // On the current media, as the menu's entries call them.
    void layerCommandIsASetAtTheSecond() {
        QFETCH(int, command);
        QFETCH(int, moved);
        QFETCH(QList<int>, order);
        const QList<Media*> medias = {add(MediaType::image, Qt::red),
                                      add(MediaType::image, Qt::green),
                                      add(MediaType::image, Qt::blue)};
        QList<int> before;
        for (Media* media : medias)
            before << media->getLayer().toInt();
        seek(6);
        scene()->setCurrentMedia(medias[moved]->getId());
        if (command == 0)
            canvas()->bringToFront();
        else
            canvas()->sendBackward();
        QCOMPARE(count(scene(), medias[moved]->getId(), SyncType::set, 6), 1);
        for (int rank = 0; rank < 3; ++rank) {
            const Media* media = medias[order[rank]];
            QCOMPARE(media->getLayer().toInt(), before[rank]);
            QCOMPARE(itemOf(media)->zValue(), qreal(before[rank]));
        }
        // One step undoes the command, model and picture.
        doc->undoAction();
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(count(scene(), medias[i]->getId(), SyncType::set), 0);
            QCOMPARE(medias[i]->getLayer().toInt(), before[i]);
            QCOMPARE(itemOf(medias[i])->zValue(), qreal(before[i]));
        }
    }

    void removalAsksFirst_data() {
        QTest::addColumn<int>("route"); // 0 menu, 1 Delete key, 2 an emptied text
        QTest::addColumn<QString>("answer");
        QTest::newRow("menu, no") << 0 << "Não";
        QTest::newRow("Delete key, yes") << 1 << "Sim";
        QTest::newRow("emptied text, yes") << 2 << "Sim";
    }
    void removalAsksFirst() {
        QFETCH(int, route);
        QFETCH(QString, answer);
        Media* other = add(MediaType::image);
        Media* media = add(MediaType::text);
        media->setLabel("Legenda");
        const int id = media->getId();
        ModalAnswerer answerer;
        answerer.answer(answer);
        if (route == 0) {
            openMenu(media, "Deletar");
        } else if (route == 1) {
            ViewInput::click(view(), centre(media));
            WindowBench::key(Qt::Key_Delete, Qt::NoModifier, view());
        } else {
            // Focus is elsewhere by the time the text asks.
            ViewInput::click(view(), centre(other));
            emit static_cast<spatialview::TextItem*>(itemOf(media))->deleteItem();
        }
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.seen().size(), 1);
        QCOMPARE(answerer.last().title, QString("Remover Mídia"));
        QCOMPARE(answerer.last().text, QString("Deseja mesmo remover a Mídia \"Legenda\"?\n"));
        const bool removed = answer == "Sim";
        QCOMPARE(scene()->hasMedia(id), !removed);
        QTRY_COMPARE(bool(canvas()->getItem(SpatialView::mediaKey(id))), !removed);
        if (!removed)
            return;
        doc->undoAction();
        QVERIFY(scene()->hasMedia(id));
        QVERIFY(canvas()->getItem(SpatialView::mediaKey(id)));
        QCOMPARE(scene()->getMedia(id)->getLabel(), QString("Legenda"));
    }

    // Seven rows of the shape menu; a choice changes the figure and makes no sync.
    void shapeChangeMenu() {
        Media* shape = add(MediaType::shape);
        const int syncs = scene()->getAllSyncs().size();
        openMenu(shape, "Trocar mídia");
        menu::ShapePalette* palette = canvas()->commands()->shapeMenu();
        QTRY_VERIFY(palette->isVisible());
        QList<int> rows;
        const auto bars = palette->findChildren<QToolBar*>();
        for (const QToolBar* bar : bars)
            rows << bar->actions().size();
        QCOMPARE(rows, (QList<int>{8, 8, 8, 8, 8, 8, 4}));
        QAction* plus = bars.at(2)->actions().at(4);
        QCOMPARE(plus->text(), QString("Mais"));
        plus->trigger();
        QVERIFY(!palette->isVisible());
        QCOMPARE(shape->getGeometry(), QString("19"));
        QCOMPARE(static_cast<spatialview::ShapeItem*>(itemOf(shape))->shapeType(),
                 Definitions::kShapeType::plus);
        QCOMPARE(scene()->getAllSyncs().size(), syncs);
    }
};

SELVORA_TEST_MAIN(TestCanvasCommands)
#include "tst_canvascommands.moc"
