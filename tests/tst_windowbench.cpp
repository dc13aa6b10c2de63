#include "support/MenuPicker.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"

#include <QGraphicsRectItem>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsView>
#include <QMenu>

using namespace selvora::test;

namespace {

// A square with a context menu that remembers the entry chosen.
class Square : public QGraphicsRectItem {
public:
    Square() : QGraphicsRectItem(0, 0, 50, 50) {}
    QString chosen = QStringLiteral("none");

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent*) override {
        QMenu menu;
        menu.addAction("&Copiar");
        menu.addAction("Colar")->setEnabled(false);
        menu.addSeparator();
        menu.addMenu("Ordenar")->addAction("Trazer para frente");
        QAction* action = menu.exec(QCursor::pos());
        chosen = action ? action->text() : QString();
    }
};

} // namespace

// The bench the GUI tests stand on: if it misses, every later test misses with it.
class TestWindowBench : public QObject {
    Q_OBJECT
private:
    QGraphicsScene* scene = nullptr;
    QGraphicsView* view = nullptr;
    Square* square = nullptr;

private slots:
    void init() {
        scene = new QGraphicsScene(0, 0, 720, 405);
        view = new QGraphicsView(scene);
        view->setFixedSize(740, 425);
        square = new Square;
        square->setPos(100, 100);
        scene->addItem(square);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view));
    }
    void cleanup() {
        delete view;
        delete scene;
    }

    void picksFromContextMenus_data() {
        QTest::addColumn<QStringList>("path");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("in a submenu")
            << QStringList{"Ordenar", "Trazer para frente"} << "Trazer para frente";
        QTest::newRow("disabled") << QStringList{"Colar"} << QString();
        QTest::newRow("dismissed") << QStringList() << QString();
    }
    void picksFromContextMenus() {
        QFETCH(QStringList, path);
        QFETCH(QString, chosen);
        MenuPicker picker;
        picker.choose(path);
        ViewInput::contextMenu(view, QPointF(125, 125));
        QVERIFY(picker.waitDone());
        QCOMPARE(square->chosen, chosen);
        QCOMPARE(picker.seen().first().texts, (QStringList{"Copiar", "Colar", "Ordenar"}));
        QCOMPARE(picker.seen().first().enabled.value("Colar"), false);
        QVERIFY(!QApplication::activePopupWidget());
    }
};

SELVORA_TEST_MAIN(TestWindowBench)
#include "tst_windowbench.moc"
