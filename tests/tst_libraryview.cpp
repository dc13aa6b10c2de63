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

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
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

    // Three files through the dialog, one named in capitals; a row dragged to the canvas
    // becomes a media there, and a media row dragged back keeps its look on top.
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

        dropOnCanvas(library()->dragData(library()->getItems().at(2)));
        Media* dropped = scene()->getMedia(-1);
        QCOMPARE(dropped->getPathStart(), files.at(2));
        QVERIFY(canvas->getCurrentView()->getItem(SpatialView::mediaKey(dropped->getId())));
        QHash<QString, QString> look = dropped->getProperties();
        look["left"] = "12";
        look["transparency"] = "40";
        dropped->setProperties(look);
        const int top = scene()->lastMediaLayer()->getLayer().toInt();
        dropOnCanvas(medias()->dragData(medias()->getItem(dropped->getId())));
        Media* copy = scene()->getMedia(-1);
        QCOMPARE(copy->getTransparency(), QString("40"));
        QCOMPARE(copy->getLayer().toInt(), top + 1);
        QCOMPARE(doc->getPathMedia().size(), 3); // the library lists a file once
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
        QCOMPARE(shown(medias()).size(), 3);
        for (int t = 1; t <= 5; ++t)
            scene()->setCurrentTime(t, true);
        QCOMPARE(shown(layers()), QList<int>({c->getId(), a->getId()}));
        scene()->setCurrentTime(1, false);
        scene()->resetExecuteSyncs();
        QCOMPARE(shown(layers()), QList<int>({b->getId(), a->getId()}));
        // Made current again, the scene lists its front at the top too.
        const int here = scene()->getId();
        doc->setCurrentScene(doc->createScene()->getId(), true);
        doc->setCurrentScene(here, true);
        QCOMPARE(shown(layers()), QList<int>({b->getId(), a->getId()}));
    }

    // A copy has a new id, the look of its source, and the top layer.
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
        QCOMPARE(copy->getColorFill(), QString("#123456"));
        scene()->resetExecuteSyncs();
        QCOMPARE(copy->getLeft(), QString("30"));
        QCOMPARE(copy->getLayer(), QString("3"));
        QCOMPARE(shown(layers()).first(), copy->getId());
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
        QCOMPARE(answerer.seen().at(1).text,
                 QString::fromUtf8("Por favor, informe o rótulo da mídia antes de salvar."));
        QCOMPARE(media->getLabel(), QString("Mídia_1"));

        layers()->item(0)->setText("Outro");
        QCOMPARE(medias()->item(0)->text(), QString("Outro"));
        doc->undoAction();
        QCOMPARE(medias()->item(0)->text(), QString::fromUtf8("Mídia_1"));
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

    // A file gone since its import is not inserted; removing the row asks first.
    void insertAndRemove() {
        const QString file = pictures(1).first();
        QCOMPARE(library()->importFiles({file}), 1);
        library()->setCurrentRow(0);
        QFile::remove(file);
        ModalAnswerer answerer;
        answerer.answer("OK");
        view->getButtons().at(insertButton)->click();
        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("O arquivo \"p0.png\" não pode ser inserido: arquivo não "
                                   "encontrado."));
        QCOMPARE(scene()->countMedia(), 0);

        answerer.answer("Sim");
        contextMenu(library(), rowPoint(library(), 0), "Deletar");
        QCOMPARE(answerer.last().text,
                 QString::fromUtf8("Deseja mesmo remover a Mídia \"p0.png\"?\n"));
        QVERIFY(doc->getPathMedia().isEmpty());
    }
};

SELVORA_TEST_MAIN(TestLibraryView)
#include "tst_libraryview.moc"
