#include "buffer/Buffer.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "slideView/SceneThumbnail.h"
#include "slideView/SlideListTree.h"
#include "slideView/SlideListTreeChild.h"
#include "slideView/SlideListTreeRoot.h"
#include "slideView/SlideView.h"
#include "spatialview/SpatialGroupView.h"
#include "support/MediaFixtures.h"
#include "support/MenuPicker.h"
#include "support/ModalAnswerer.h"
#include "support/PictureProbe.h"
#include "support/TestMain.h"
#include "support/WindowBench.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolTip>

using namespace selvora;
using namespace selvora::test;
using document::Scene;
using document::Sync;
using slideView::SlideListTree;
using slideView::SlideListTreeChild;
using slideView::SlideListTreeRoot;
using slideView::SlideView;
using SyncType = Definitions::kSyncType;

namespace {
enum Button { addButton, removeButton, upButton, downButton, linkButton };
const QString kAsk = QString::fromUtf8("Deseja mesmo remover a cena \"%1\"?\n");
const QString kNotEmpty = QString::fromUtf8("A lista de cenas não pode ficar vazia.");
const QString kSelf = QString::fromUtf8(
    "A Cena \"Cena 1\" não pode ter um elo automático para ela mesmo que vá para o mesmo "
    "instante de tempo em que é acionado.");
const QString kTooLate = QString::fromUtf8(
    "A Cena \"Cena 1\" tem o tempo total de \"00:00:30\". O instante de tempo em que o elo "
    "automático é acionado não pode ser maior que o tempo total da cena.");
} // namespace

class TestSlideView : public QObject {
    Q_OBJECT
private:
    document::Document* doc = nullptr;
    QWidget* host = nullptr;
    SlideView* view = nullptr;
    buffer::Buffer* history = nullptr;

    SlideListTree* tree() const { return view->getTree(); }
    Scene* current() const { return doc->getScene(-1); }
    void press(Button button) { view->getButtons().at(button)->click(); }

    // The labels the rows show, top to bottom.
    QStringList rows() const {
        QStringList labels;
        for (int i = 0; i < tree()->topLevelItemCount(); ++i) {
            const int id = tree()->topLevelItem(i)->data(0, Qt::UserRole).toInt();
            labels << tree()->rootOf(id)->getLabelEdit()->text();
        }
        return labels;
    }
    QString selected() const {
        const QList<QTreeWidgetItem*> items = tree()->selectedItems();
        return items.size() == 1 ? rows().value(tree()->indexOfTopLevelItem(items.first()))
                                 : QString();
    }
    // A click on the row, as the user makes a scene current.
    void pick(int row) {
        const QRect rect = tree()->visualItemRect(tree()->topLevelItem(row));
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {}, rect.topLeft() + QPoint(2, 2));
    }
    void typeInto(QLineEdit* edit, const QString& text) {
        edit->setFocus();
        edit->selectAll();
        if (text.isEmpty())
            QTest::keyClick(edit, Qt::Key_Delete);
        WindowBench::type(text, edit);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    Sync* makeLink(Scene* from, Scene* to, int time, int event) {
        QHash<QString, QString> properties{{"link", QString::number(to->getId())},
                                           {"timeEvent", QString::number(event)}};
        return doc->createSync(from, -1, true, SyncType::goTo, time, properties, -1);
    }
    // A refusal over a dialog that stays: Ok, then the dialog is given up.
    static void okThenClose(QWidget* box) {
        ModalAnswerer::pressButton(box, "OK");
        QMetaObject::invokeMethod(box->parentWidget(), "reject", Qt::QueuedConnection);
    }

private slots:
    void init() {
        TestEnvironment::newProject();
        doc = document::Document::instance();
        host = new QWidget;
        host->resize(400, 700);
        view = new SlideView(doc, host);
        history = new buffer::Buffer(doc, host);
        view->resize(host->size());
        host->show();
        QVERIFY(QTest::qWaitForWindowExposed(host));
        // No window manager makes it active: focus moves only in an active window.
        QApplication::setActiveWindow(host);
    }
    void cleanup() {
        delete host;
        host = nullptr;
    }

    // Add, pick, move and remove through the panel; every step undoes.
    void addMoveRemove() {
        press(addButton);
        press(addButton);
        QCOMPARE(rows(), QStringList({"Cena 1", "Cena 2", "Cena 3"}));
        pick(1);
        QCOMPARE(selected(), QString("Cena 2"));
        press(downButton);
        QCOMPARE(rows(), QStringList({"Cena 1", "Cena 3", "Cena 2"}));
        press(upButton);
        press(upButton);
        QCOMPARE(rows(), QStringList({"Cena 2", "Cena 1", "Cena 3"}));
        doc->undoAction();
        QCOMPARE(rows(), QStringList({"Cena 1", "Cena 2", "Cena 3"}));
        QCOMPARE(current()->getLabel(), QString("Cena 2"));

        ModalAnswerer answerer;
        answerer.answer(QString::fromUtf8("Não"));
        press(removeButton);
        QCOMPARE(answerer.last().text, kAsk.arg("Cena 2"));
        QCOMPARE(rows().size(), 3);
        answerer.answer("Sim");
        press(removeButton);
        QCOMPARE(answerer.last().title, QString("Remover Cena"));
        // The row that took the removed one's place is current.
        QCOMPARE(selected(), QString("Cena 3"));
        doc->undoAction();
        QCOMPARE(rows(), QStringList({"Cena 1", "Cena 2", "Cena 3"}));
        QCOMPARE(current()->getLabel(), QString("Cena 2"));
        QVERIFY(!answerer.last().unexpected);
    }

    // The short tip at once, the long one a moment later.
    void toolTips() {
        const QString tip = QString::fromUtf8("Criar elo automático entre Cenas");
        const QString detail =
            QString::fromUtf8("Permite configurar transições automáticas entre uma cenas.");
        QPushButton* target = view->getButtons().at(linkButton);
        QCursor::setPos(target->mapToGlobal(QPoint(4, 4)));
        QTRY_COMPARE(QCursor::pos(), target->mapToGlobal(QPoint(4, 4)));
        QHelpEvent help(QEvent::ToolTip, view->mapFromGlobal(QCursor::pos()), QCursor::pos());
        QApplication::sendEvent(view, &help);
        QTRY_COMPARE(QToolTip::text(), tip);
        QTRY_COMPARE(QToolTip::text(),
                     QString("%1:<br/><br/><font size=\"2\">%2</font>").arg(tip, detail));
    }

    void removeLastRefused() {
        ModalAnswerer answerer;
        answerer.answer("OK");
        tree()->setCurrentItem(tree()->topLevelItem(0));
        QTest::keyClick(tree(), Qt::Key_Delete);
        QCOMPARE(answerer.last().text, kNotEmpty);
        QCOMPARE(rows().size(), 1);
    }

    void renameInRow_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("box");
        auto row = [](const char* name, const QString& typed, const QString& label,
                      const QString& box) { QTest::addRow(name) << typed << label << box; };
        row("spaces squeezed", "  Um    dois ", "Um dois", "");
        row("10000 characters", QString(10000, 'x'), QString(15, 'x'), "");
        row("blanks only", "     ", "Cena 1", "");
        row("name of another scene", "Cena 2", "Cena 1",
            QString::fromUtf8("Não foi possível editar a cena. Já existe uma cena com esse nome."));
    }
    void renameInRow() {
        QFETCH(QString, typed);
        QFETCH(QString, label);
        QFETCH(QString, box);
        press(addButton);
        Scene* first = doc->getSceneAllInOrder().first();
        ModalAnswerer answerer;
        if (!box.isEmpty())
            answerer.answer("OK");
        typeInto(tree()->rootOf(first->getId())->getLabelEdit(), typed);
        QCOMPARE(rows().first(), label);
        QCOMPARE(answerer.last().text, box);
        if (label != "Cena 1") {
            doc->undoAction();
            QCOMPARE(rows().first(), QString("Cena 1"));
        }
    }

    // The dialog of the context menu refuses blanks; the rest is squeezed as in the row.
    void renameDialog() {
        ModalAnswerer answerer;
        answerer.answerWith([](QWidget* dialog) {
            auto* edit = dialog->findChild<QLineEdit*>();
            edit->setFocus();
            edit->selectAll();
            WindowBench::type("   ", edit);
            ModalAnswerer::pressButton(dialog, "&Salvar");
        });
        answerer.answerWith(okThenClose);
        MenuPicker::findAction(tree(), QString::fromUtf8("Renomear Cena"))->trigger();
        QCOMPARE(rows().first(), QString("Cena 1"));
        QCOMPARE(answerer.seen().at(1).text,
                 QString::fromUtf8("Por favor, informe o rótulo da cena antes de salvar."));
    }

    // Each field of the link row writes the sync; what is refused is put back.
    void linkRow_data() {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("time");
        QTest::addColumn<QString>("link");
        QTest::addColumn<QString>("timeEvent");
        QTest::addColumn<QString>("box");
        auto row = [](const char* name, int field, const QString& typed, int time,
                      const QString& link, const QString& timeEvent, const QString& box) {
            QTest::addRow(name) << field << typed << time << link << timeEvent << box;
        };
        row("earlier", 0, "000012", 12, "second", "3", "");
        row("after the end", 0, "000031", 20, "second", "3", kTooLate);
        row("to itself", 1, "Cena 1", 20, "first", "3", "");
        row("to itself at its own second", 3, "000020", 20, "", "20", kSelf);
    }
    void linkRow() {
        QFETCH(int, field);
        QFETCH(QString, typed);
        QFETCH(int, time);
        QFETCH(QString, link);
        QFETCH(QString, timeEvent);
        QFETCH(QString, box);
        Scene* first = current();
        first->setTotalTime(30);
        Scene* second = doc->createScene(-1);
        Sync* sync = makeLink(first, second, 20, 3);
        QVERIFY(sync);
        SlideListTreeChild* row = tree()->childOf(sync);
        QVERIFY(row);
        QCOMPARE(row->getTargetCombo()->currentText(), QString("Cena 2"));
        ModalAnswerer answerer;
        if (!box.isEmpty())
            answerer.answer("OK");
        if (field == 1) {
            row->getTargetCombo()->setCurrentIndex(row->getTargetCombo()->findText(typed));
        } else if (field == 3) {
            // The target first, then the instant that makes the link point at itself.
            row->getTargetCombo()->setCurrentIndex(row->getTargetCombo()->findText("Cena 1"));
            typeInto(row->getEventEdit(), typed);
        } else {
            typeInto(field == 0 ? row->getTimeEdit() : row->getEventEdit(), typed);
        }
        const QString id = link == "first"    ? QString::number(first->getId())
                           : link == "second" ? QString::number(second->getId())
                                              : QString();
        QCOMPARE(sync->getTime(), time);
        QCOMPARE(sync->getLink(), id);
        QCOMPARE(sync->getTimeEvent(), timeEvent);
        QCOMPARE(answerer.last().text, box);
        // Undone step by step, the row follows the sync back.
        while (sync->getTime() != 20 || sync->getLink() != QString::number(second->getId()) ||
               sync->getTimeEvent() != "3") {
            const int before = history->getPosition();
            doc->undoAction();
            QVERIFY(history->getPosition() != before);
        }
        QCOMPARE(row->getTimeEdit()->text(), QString("00:00:20"));
        QCOMPARE(row->getEventEdit()->text(), QString("00:00:03"));
    }

    void linkRemoved() {
        Scene* first = current();
        first->setTotalTime(30);
        Sync* sync = makeLink(first, doc->createScene(-1), 10, 0);
        tree()->childOf(sync)->getRemoveButton()->click();
        QVERIFY(first->getAllSyncs(SyncType::goTo).isEmpty());
        QCOMPARE(tree()->topLevelItem(0)->childCount(), 0);
        doc->undoAction();
        const QList<Sync*> back = first->getAllSyncs(SyncType::goTo);
        QCOMPARE(tree()->childOf(back.value(0))->getTimeEdit()->text(), QString("00:00:10"));
        // A new scene is offered at once, and a rename follows.
        doc->createScene(-1)->setLabel("Nova");
        QVERIFY(tree()->childOf(back.first())->getTargetCombo()->findText("Nova") > 0);
    }

    // A scene goes while a field of its rows is being typed into: nothing else changes.
    void sceneRemovedWhileEditing() {
        Scene* first = current();
        first->setTotalTime(30);
        Scene* second = doc->createScene(-1);
        second->setTotalTime(30);
        Sync* sync = makeLink(second, first, 10, 0);
        QVERIFY(sync);
        QLineEdit* label = tree()->rootOf(second->getId())->getLabelEdit();
        label->setFocus();
        label->selectAll();
        WindowBench::type("Meio nome", label);
        QLineEdit* at = tree()->childOf(sync)->getTimeEdit();
        at->setFocus();
        WindowBench::type("0000", at);
        const int records = history->getRecords().size();
        doc->removeScene(second->getId());
        QTRY_COMPARE(rows(), QStringList({"Cena 1"}));
        QCOMPARE(history->getRecords().size(), records + 1);
        doc->undoAction();
        // The label was left, and so taken, when the time field got the focus.
        QCOMPARE(rows(), QStringList({"Cena 1", "Meio nome"}));
        QCOMPARE(tree()->topLevelItem(1)->childCount(), 1);
    }

    // The picture of a row shows what the scene shows, drawn from its canvas or, without one,
    // from the model.
    void thumbnail_data() {
        QTest::addColumn<bool>("canvas");
        QTest::addRow("from the canvas") << true;
        QTest::addRow("from the model") << false;
    }
    void thumbnail() {
        QFETCH(bool, canvas);
        if (canvas)
            new spatialview::SpatialGroupView(doc, host);
        press(addButton);
        pick(1);
        QTemporaryDir files;
        const QString path =
            MediaFixtures::makeImage(files.path(), "red.png", QSize(720, 405), QColor(255, 0, 0));
        document::Media* media =
            doc->createMedia(current(), path, Definitions::kMediaType::image, QString(), "");
        QVERIFY(media);
        // Where the picture stands on the card, inside its edges.
        const QRectF window = tree()->getThumbnails()->pictureRect();
        const QRect spot =
            QRectF(window.left() + media->getLeftPx(window.width()),
                   window.top() + media->getTopPx(window.height()),
                   media->getWidthPx(window.width()), media->getHeightPx(window.height()))
                .toAlignedRect()
                .adjusted(1, 1, -1, -1);
        QVERIFY(!spot.isEmpty());
        QLabel* picture = tree()->rootOf(current()->getId())->getPicture();
        QTRY_VERIFY(PictureProbe::share(PictureProbe::grab(picture), spot, Qt::red, 60) > 0.6);
        // The other scene is still empty.
        QLabel* other = tree()->rootOf(doc->getSceneAllInOrder().first()->getId())->getPicture();
        QVERIFY(PictureProbe::share(PictureProbe::grab(other), spot, Qt::red, 60) < 0.1);
        // The picture follows the scene's edits.
        current()->removeMedia(media->getId());
        QTRY_VERIFY(PictureProbe::share(PictureProbe::grab(picture), spot, Qt::red, 60) < 0.1);
    }

    // Two hundred scene pictures, with a picture each, are drawn from the model and then from
};

SELVORA_TEST_MAIN(TestSlideView)
#include "tst_slideview.moc"
