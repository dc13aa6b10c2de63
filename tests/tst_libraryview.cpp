#include "buffer/Buffer.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "libraryView/LayerList.h"
#include "libraryView/LibraryList.h"
#include "libraryView/LibraryListItem.h"
#include "libraryView/LibraryView.h"
#include "libraryView/MediaList.h"
#include "libraryView/RowPicture.h"
#include "libraryView/SceneMediaItem.h"
#include "spatialview/SpatialGroupView.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialScene.h"
#include "spatialview/SpatialView.h"
#include "support/MediaFixtures.h"
#include "support/MenuPicker.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QGraphicsSceneDragDropEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolTip>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
using document::Sync;
using libraryView::LayerList;
using libraryView::LibraryList;
using libraryView::LibraryView;
using libraryView::MediaList;
using libraryView::SceneMediaItem;
using spatialview::SpatialView;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;

namespace {
enum Button { upButton, downButton, duplicateButton, insertButton, importButton };
const QString kSecondVideo = QString::fromUtf8("A cena já possui vídeo. Insira outras mídias.");
} // namespace

class TestLibraryView : public QObject {
    Q_OBJECT
private:
    document::Document* doc = nullptr;
    QWidget* host = nullptr;
    LibraryView* view = nullptr;
    spatialview::SpatialGroupView* canvas = nullptr;
    buffer::Buffer* history = nullptr;
    QTemporaryDir dir;

    Scene* scene() const { return doc->getScene(-1); }
    LayerList* layers() const { return view->getLayerList(); }
    MediaList* medias() const { return view->getMediaList(); }
    LibraryList* library() const { return view->getLibraryList(); }
    Media* shape(const QString& colour = "#ff7f00") {
        Media* media = doc->createMedia(scene(), "", MediaType::shape, "0", "", -1);
        media->setColorFill(colour);
        return media;
    }
    // Ids of the rows a list shows, top to bottom.
    static QList<int> shown(const QListWidget* list) {
        QList<int> ids;
        for (int r = 0; r < list->count(); ++r) {
            if (!list->item(r)->isHidden())
                ids << static_cast<SceneMediaItem*>(list->item(r))->getId();
        }
        return ids;
    }
    QStringList libraryNames() const {
        QStringList names;
        for (int r = 0; r < library()->count(); ++r)
            names << library()->item(r)->text();
        return names;
    }
    // What the canvas does with a drop of this payload.
    void dropOnCanvas(QMimeData* data) {
        QGraphicsSceneDragDropEvent event(QEvent::GraphicsSceneDrop);
        event.setMimeData(data);
        event.setProposedAction(Qt::CopyAction);
        QApplication::sendEvent(canvas->getCurrentView()->getSpatialScene(), &event);
        delete data;
    }
    // A layer row dropped on the upper or lower quarter of another row.
    void dropRow(int draggedId, int targetId, bool lower) {
        QListWidgetItem* target = layers()->getItem(targetId);
        const QRect rect = layers()->visualItemRect(target);
        const QPoint at(rect.center().x(), lower ? rect.bottom() - 1 : rect.top() + 1);
        QScopedPointer<QMimeData> data(layers()->dragData(layers()->getItem(draggedId)));
        // Qt hands a drop only to the target of a live drag: the list's drop work is called.
        QVERIFY(layers()->dropLayerItem(data.data(), at));
    }
    // Opens the context menu of a list over a point of its viewport and records it.
    static MenuPicker::Seen contextMenu(QListWidget* list, const QPoint& at,
                                        const QString& choice = QString()) {
        MenuPicker picker;
        if (choice.isEmpty())
            picker.dismiss();
        else
            picker.choose({choice});
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, list->viewport()->mapToGlobal(at));
        QApplication::sendEvent(list->viewport(), &event);
        picker.waitDone();
        return picker.seen().value(0);
    }
    static QPoint rowPoint(QListWidget* list, int row) {
        return list->visualItemRect(list->item(row)).center();
    }
    QStringList pictures(int n, const QString& prefix = "p") {
        QStringList files;
        for (int i = 0; i < n; ++i)
            files << MediaFixtures::makeImage(dir.path(), QString("%1%2.png").arg(prefix).arg(i),
                                              QSize(8, 6));
        return files;
    }

private slots:
    void init() {
        TestEnvironment::newProject();
        doc = document::Document::instance();
        host = new QWidget;
        host->resize(1200, 700);
        canvas = new spatialview::SpatialGroupView(doc, host);
        view = new LibraryView(doc, host);
        history = new buffer::Buffer(doc, host);
        auto* layout = new QHBoxLayout(host);
        layout->addWidget(canvas);
        layout->addWidget(view);
        host->show();
        QVERIFY(QTest::qWaitForWindowExposed(host));
        QApplication::setActiveWindow(host);
        scene()->setTotalTime(20);
    }
    void cleanup() {
        scene()->pauseScene();
        delete host;
        host = nullptr;
    }

    // Three files through the dialog, one of them named in capitals; a row dragged to the
    // canvas becomes a media there, and a media row dragged back keeps its look on top.
    void importAndDropOnCanvas() {
        const QStringList files = {MediaFixtures::makeImage(dir.path(), "a.png", QSize(40, 30)),
                                   MediaFixtures::makeImage(dir.path(), "b.jpg", QSize(30, 40)),
                                   MediaFixtures::makeImage(dir.path(), "C.PNG", QSize(20, 20))};
        doc->setLastDirectory(dir.path());
        ModalAnswerer answerer;
        answerer.answerFileDialog("\"a.png\" \"b.jpg\" \"C.PNG\"");
        view->getButtons().at(importButton)->click();
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.last().title, QString("Escolha os arquivos"));
        QCOMPARE(libraryNames(), QStringList({"a.png", "b.jpg", "C.PNG"}));
        QCOMPARE(doc->getPathMedia(), files);
        QCOMPARE(library()->getItems().at(2)->getType(), int(MediaType::image));
        QVERIFY(library()->getItems().at(2)->toolTip().startsWith("<img"));

        Media* first = shape();
        dropOnCanvas(library()->dragData(library()->getItems().at(2)));
        Media* dropped = scene()->getMedia(-1);
        QVERIFY(dropped != first);
        QCOMPARE(dropped->getPathStart(), files.at(2));
        QCOMPARE(dropped->getType(), MediaType::image);
        QVERIFY(canvas->getCurrentView()->getItem(SpatialView::mediaKey(dropped->getId())));
        QCOMPARE(shown(medias()), QList<int>({first->getId(), dropped->getId()}));

        QHash<QString, QString> look = dropped->getProperties();
        look["left"] = "12";
        look["transparency"] = "40";
        dropped->setProperties(look);
        const int top = scene()->lastMediaLayer()->getLayer().toInt();
        dropOnCanvas(medias()->dragData(medias()->getItem(dropped->getId())));
        Media* copy = scene()->getMedia(-1);
        QVERIFY(copy != dropped);
        QCOMPARE(copy->getLeft(), QString("12"));
        QCOMPARE(copy->getTransparency(), QString("40"));
        QCOMPARE(copy->getLayer().toInt(), top + 1);
        QCOMPARE(shown(layers()).first(), copy->getId());
        QCOMPARE(doc->getPathMedia().size(), 3); // the library lists a file once

        // A shape has no file: its copy has none either, and the library stays as it was.
        dropOnCanvas(medias()->dragData(medias()->getItem(first->getId())));
        QCOMPARE(scene()->getMedia(-1)->getType(), MediaType::shape);
        QVERIFY(scene()->getMedia(-1)->getPathStart().isEmpty());
        QCOMPARE(library()->count(), 3);
    }

    // A bottom row dropped on the top row goes in front from the current second on; undo takes
    // it back.
    void layerRowToTop() {
        Media* a = shape();
        Media* b = shape();
        Media* c = shape();
        QCOMPARE(shown(layers()), QList<int>({c->getId(), b->getId(), a->getId()}));
        scene()->setCurrentTime(4, true);
        const int before = history->getRecords().size();

        dropRow(a->getId(), c->getId(), false);
        QCOMPARE(shown(layers()), QList<int>({a->getId(), c->getId(), b->getId()}));
        QCOMPARE(a->getLayer(), QString("3"));
        QCOMPARE(c->getLayer(), QString("2"));
        QCOMPARE(b->getLayer(), QString("1"));
        const auto z = [this](const Media* m) {
            return canvas->getCurrentView()->getItem(SpatialView::mediaKey(m->getId()))->zValue();
        };
        QVERIFY(z(a) > z(c) && z(c) > z(b));
        const Sync* set = scene()->getSync(SyncType::set, a->getId(), true);
        QVERIFY(set);
        QCOMPARE(set->getTime(), 4);
        QCOMPARE(set->getLayer(), QString("3"));
        QCOMPARE(scene()->getMedia(-1), a);
        // One record for the dragged media and one per media shifted by it, all one step.
        QCOMPARE(history->getRecords().size() - before, 3);
        const auto stack = [&] { return a->getLayer() + b->getLayer() + c->getLayer(); };
        doc->undoAction();
        QCOMPARE(stack(), QString("123"));
        QCOMPARE(shown(layers()), QList<int>({c->getId(), b->getId(), a->getId()}));
        doc->redoAction();
        QCOMPARE(stack(), QString("312"));
        QCOMPARE(shown(layers()), QList<int>({a->getId(), c->getId(), b->getId()}));
        doc->undoAction();
        QCOMPARE(stack(), QString("123"));
    }

    // The buttons move the selected row one layer.
    void layerButtons() {
        Media* a = shape();
        Media* b = shape();
        shape();
        QTest::mouseClick(layers()->viewport(), Qt::LeftButton, {}, rowPoint(layers(), 2));
        QCOMPARE(scene()->getMedia(-1), a);
        view->getButtons().at(upButton)->click();
        QCOMPARE(a->getLayer(), QString("2"));
        QCOMPARE(b->getLayer(), QString("1"));
        QCOMPARE(shown(layers()).at(1), a->getId());
        view->getButtons().at(downButton)->click();
        QCOMPARE(a->getLayer(), QString("1"));
        QCOMPARE(shown(layers()).at(2), a->getId());
    }

    // A row dropped on itself stays; a file from the library does not enter the layers.
    void layerDropRefusals() {
        shape();
        Media* b = shape();
        dropRow(b->getId(), b->getId(), true);
        QCOMPARE(b->getLayer(), QString("2"));
        QScopedPointer<QMimeData> file(
            libraryView::RowPicture::mediaData("/tmp/x.png", 1, nullptr));
        QVERIFY(!LayerList::acceptsDrag(file.data()));
        QVERIFY(!layers()->dropLayerItem(file.data(), QPoint(5, 5)));
    }

    // Rows come and go with the starts and stops of the seconds the clock passes, and a seek
    // rebuilds them for the new second.
    void layersFollowTime() {
        Media* a = shape();
        Media* b = shape();
        doc->createSync(scene(), b->getId(), true, SyncType::stop, 3, b->getProperties(), -1);
        scene()->setCurrentTime(5, false);
        Media* c = shape();
        scene()->setCurrentTime(0, false);
        scene()->resetExecuteSyncs();
        QCOMPARE(shown(layers()), QList<int>({b->getId(), a->getId()}));
        QCOMPARE(layers()->getVisibleCount(), 2);
        QCOMPARE(shown(medias()).size(), 3);

        const QList<QList<int>> expected = {{b->getId(), a->getId()},
                                            {b->getId(), a->getId()},
                                            {a->getId()},
                                            {a->getId()},
                                            {c->getId(), a->getId()}};
        for (int t = 1; t <= 5; ++t) {
            scene()->setCurrentTime(t, true);
            QCOMPARE(shown(layers()), expected.at(t - 1));
        }
        scene()->setCurrentTime(1, false);
        scene()->resetExecuteSyncs();
        QCOMPARE(shown(layers()), QList<int>({b->getId(), a->getId()}));
        QCOMPARE(layers()->getVisibleCount(), 2);
        // Made current again, the scene lists its front at the top too.
        const int here = scene()->getId();
        doc->setCurrentScene(doc->createScene()->getId(), true);
        doc->setCurrentScene(here, true);
        QCOMPARE(shown(layers()), QList<int>({b->getId(), a->getId()}));
    }

    // A copy has a new id, the look of its source, and the top layer; a second video is refused.
    void duplicate() {
        Media* source = shape("#123456");
        QHash<QString, QString> look = source->getProperties();
        look["left"] = "30";
        look["transparency"] = "25";
        source->setProperties(look);
        shape();
        QTest::mouseClick(medias()->viewport(), Qt::LeftButton, {}, rowPoint(medias(), 0));
        QCOMPARE(scene()->getMedia(-1), source);
        view->getButtons().at(duplicateButton)->click();
        Media* copy = scene()->getMedia(-1);
        QVERIFY(copy->getId() != source->getId());
        for (const char* key :
             {"left", "top", "width", "height", "transparency", "colorFill", "geometry"})
            QCOMPARE(copy->getProperties().value(key), source->getProperties().value(key));
        QCOMPARE(copy->getLayer(), QString("3"));
        scene()->resetExecuteSyncs();
        QCOMPARE(copy->getLeft(), QString("30"));
        QCOMPARE(copy->getLayer(), QString("3"));
        QCOMPARE(medias()->count(), 3);
        QCOMPARE(shown(layers()).first(), copy->getId());

        Media* video =
            doc->createMedia(scene(), MediaFixtures::videoPath(), MediaType::video, "", "", -1);
        QVERIFY(video);
        ModalAnswerer answerer;
        answerer.answer("OK");
        view->getButtons().at(duplicateButton)->click();
        QCOMPARE(answerer.last().text, kSecondVideo);
        QCOMPARE(scene()->countMedia(), 4);
    }

    // The dialog, an empty label refused, and an edit in place; both lists follow.
    void rename() {
        Media* media = shape();
        ModalAnswerer answerer;
        answerer.answerWith([](QWidget* dialog) {
            dialog->findChild<QLineEdit*>()->clear();
            ModalAnswerer::pressButton(dialog, "&Salvar");
        });
        // The refusal leaves the dialog open: it is given up after the warning.
        answerer.answerWith([](QWidget* box) {
            ModalAnswerer::pressButton(box, "OK");
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (widget->isVisible() && !qobject_cast<QMessageBox*>(widget) &&
                    qobject_cast<QDialog*>(widget))
                    QMetaObject::invokeMethod(widget, "reject", Qt::QueuedConnection);
            }
        });
        contextMenu(medias(), rowPoint(medias(), 0), "Renomear");
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.seen().at(0).title, QString::fromUtf8("Rótulo da mídia."));
        QCOMPARE(answerer.seen().at(1).text,
                 QString::fromUtf8("Por favor, informe o rótulo da mídia antes de salvar."));
        QCOMPARE(media->getLabel(), QString("Mídia_1"));

        answerer.answerWith([](QWidget* dialog) {
            auto* edit = dialog->findChild<QLineEdit*>();
            QCOMPARE(edit->maxLength(), 15);
            edit->setText(QString::fromUtf8("Título"));
            ModalAnswerer::pressButton(dialog, "&Salvar");
        });
        contextMenu(medias(), rowPoint(medias(), 0), "Renomear");
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(media->getLabel(), QString::fromUtf8("Título"));
        QCOMPARE(layers()->item(0)->text(), QString::fromUtf8("Título"));

        layers()->item(0)->setText("Outro");
        QCOMPARE(media->getLabel(), QString("Outro"));
        QCOMPARE(medias()->item(0)->text(), QString("Outro"));
        doc->undoAction();
        QCOMPARE(medias()->item(0)->text(), QString::fromUtf8("Título"));
    }

    // The current media selects its rows; a click on a row makes its media current.
    void selectionBothWays() {
        Media* a = shape();
        Media* b = shape();
        scene()->setCurrentMedia(a->getId());
        QCOMPARE(medias()->currentItem(), medias()->getItem(a->getId()));
        QCOMPARE(layers()->currentItem(), layers()->getItem(a->getId()));
        QTest::mouseClick(layers()->viewport(), Qt::LeftButton, {}, rowPoint(layers(), 0));
        QCOMPARE(scene()->getMedia(-1), b);
        QCOMPARE(medias()->currentItem(), medias()->getItem(b->getId()));

        const QString label = b->getLabel();
        ModalAnswerer answerer;
        answerer.answer("Sim");
        contextMenu(medias(), rowPoint(medias(), 1), "Deletar");
        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("Deseja mesmo remover a Mídia \"%1\"?\n").arg(label));
        QCOMPARE(shown(medias()), QList<int>({a->getId()}));
        QCOMPARE(shown(layers()), QList<int>({a->getId()}));
    }

    // The library belongs to the project: it stays across scenes and goes with a new project.
    void libraryFollowsProject() {
        doc->addPathMedia(pictures(1).first());
        shape();
        Scene* other = doc->createScene(-1);
        doc->setCurrentScene(other->getId(), true);
        QCOMPARE(library()->count(), 1);
        QCOMPARE(medias()->count(), 0);
        doc->newProject();
        QCOMPARE(library()->count(), 0);
        QCOMPARE(medias()->count(), 0);
        shape();
        QCOMPARE(medias()->count(), 1);
        QCOMPARE(layers()->count(), 1);
    }

    // Actions over a row are enabled, over the empty area only what needs no row.
    // The tips of the tab in front only: the short one at once, the long one a moment later.
    void toolTips() {
        view->getTabs()->setCurrentIndex(2);
        QPushButton* target = view->getButtons().at(importButton);
        QCursor::setPos(target->mapToGlobal(QPoint(4, 4)));
        QTRY_COMPARE(QCursor::pos(), target->mapToGlobal(QPoint(4, 4)));
        QHelpEvent help(QEvent::ToolTip, view->mapFromGlobal(QCursor::pos()), QCursor::pos());
        QApplication::sendEvent(view, &help);
        QTRY_COMPARE(QToolTip::text(), QString::fromUtf8("Importar mídia"));
        QTRY_COMPARE(QToolTip::text(),
                     QString::fromUtf8("Importar mídia:<p><p><font size=\"2\">Importa mídias "
                                       "para a biblioteca.</font></p></p>"));
    }

    void contextMenus_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QStringList>("alwaysOn");
        const auto texts = [](const char* joined) { return QString::fromUtf8(joined).split('|'); };
        QTest::addRow("layers") << 0
                                << texts("Subir uma camada|Descer uma camada|Trazer pra frente|"
                                         "Enviar para trás|Renomear|Deletar")
                                << QStringList();
        QTest::addRow("media") << 1 << texts("Duplicar|Renomear|Deletar") << QStringList();
        QTest::addRow("library") << 2 << texts("Inserir na cena|Importar mídias|Deletar")
                                 << texts("Importar mídias");
    }
    void contextMenus() {
        QFETCH(int, list);
        QFETCH(QStringList, texts);
        QFETCH(QStringList, alwaysOn);
        shape();
        doc->addPathMedia(pictures(1).first());
        QListWidget* lists[] = {layers(), medias(), library()};
        QListWidget* target = lists[list];
        view->getTabs()->setCurrentIndex(list);
        const MenuPicker::Seen overRow = contextMenu(target, rowPoint(target, 0));
        QCOMPARE(overRow.texts, texts);
        for (const QString& text : texts)
            QVERIFY(overRow.enabled.value(text));
        const MenuPicker::Seen empty = contextMenu(target, rowPoint(target, 0) + QPoint(0, 60));
        for (const QString& text : texts)
            QCOMPARE(empty.enabled.value(text), alwaysOn.contains(text));
    }

    // A playing scene leaves nothing to edit here.
    void disabledWhilePlaying() {
        scene()->playScene();
        QVERIFY(!view->isEnabled());
        scene()->pauseScene();
        QVERIFY(view->isEnabled());
    }

    // Files that cannot be media are named in one warning, each with its reason; the others
    // are taken.
    void badImports() {
        QDir(dir.path()).mkpath("pasta.png");
        for (const QString name : {"vazio.png", "texto.txt"}) {
            QFile file(dir.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(name.endsWith(".txt") ? "x" : "");
        }
        QStringList files;
        for (const char* name : {"gone.png", "pasta.png", "vazio.png", "texto.txt"})
            files << dir.filePath(name);
        ModalAnswerer answerer;
        answerer.answer("OK");
        QCOMPARE(library()->importFiles(files << pictures(1).first()), 1);
        QCOMPARE(answerer.last().title, QString::fromUtf8("Importar mídias"));
        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("Estes arquivos não foram importados:\n"
                                   "gone.png (arquivo não encontrado)\npasta.png (é uma pasta)\n"
                                   "vazio.png (arquivo vazio)\n"
                                   "texto.txt (tipo de arquivo não aceito)\n"));
        QCOMPARE(libraryNames(), QStringList({"p0.png"}));
    }

    // Five hundred at once, a few bad among them: one short warning, and the list still works.
    void manyAtOnce() {
        QStringList files = pictures(500);
        for (int i = 0; i < 12; ++i)
            files << dir.filePath(QString("gone%1.png").arg(i));
        ModalAnswerer answerer;
        answerer.answer("OK");
        QCOMPARE(library()->importFiles(files), 500);
        QVERIFY(answerer.last().text.endsWith(QString::fromUtf8("\ne mais 2 arquivos.\n")));
        QCOMPARE(library()->count(), 500);
        library()->setCurrentRow(499);
        view->getButtons().at(insertButton)->click();
        QCOMPARE(scene()->getMedia(-1)->getPathStart(), files.at(499));
    }

    // A file gone since its import is not inserted; removing the row asks first.
    void insertAndRemove() {
        const QString file = pictures(1).first();
        QCOMPARE(library()->importFiles({file}), 1);
        view->getButtons().at(insertButton)->click();
        QCOMPARE(scene()->countMedia(), 0); // nothing selected
        library()->setCurrentRow(0);
        QFile::remove(file);
        ModalAnswerer answerer;
        answerer.answer("OK");
        view->getButtons().at(insertButton)->click();
        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("O arquivo \"p0.png\" não pode ser inserido: arquivo não "
                                   "encontrado."));
        QCOMPARE(scene()->countMedia(), 0);

        answerer.answer(QString::fromUtf8("Não"));
        contextMenu(library(), rowPoint(library(), 0), "Deletar");
        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("Deseja mesmo remover a Mídia \"p0.png\"?\n"));
        QCOMPARE(library()->count(), 1);
        answerer.answer("Sim");
        contextMenu(library(), rowPoint(library(), 0), "Deletar");
        QCOMPARE(library()->count(), 0);
        QVERIFY(doc->getPathMedia().isEmpty());
    }
};

SELVORA_TEST_MAIN(TestLibraryView)
#include "tst_libraryview.moc"
