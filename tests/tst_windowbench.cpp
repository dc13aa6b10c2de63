#include "app/MainWindow.h"
#include "buffer/Buffer.h"
#include "document/Document.h"
#include "project/Project.h"
#include "support/MenuPicker.h"
#include "support/PictureProbe.h"
#include "support/TestMain.h"
#include "support/ViewInput.h"
#include "support/WindowBench.h"

#include <QGraphicsRectItem>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsView>
#include <QLineEdit>
#include <QMenu>

using namespace selvora::test;

namespace {

// A movable square that remembers what the hand did to it.
class Square : public QGraphicsRectItem {
public:
    Square() : QGraphicsRectItem(0, 0, 50, 50) {
        setBrush(Qt::red);
        setPen(Qt::NoPen);
        setFlag(ItemIsMovable);
    }
    QPointF doubleClickedAt;
    QString chosen = QStringLiteral("none");

protected:
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override {
        doubleClickedAt = event->scenePos();
    }
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

    void reachesThePanelsOfTheRealWindow() {
        WindowBench bench;
        QVERIFY(bench.window()->isVisible());
        QVERIFY(bench.panel<selvora::project::Project>());
        QVERIFY(bench.panel<selvora::buffer::Buffer>());
        QCOMPARE(bench.document()->getCountScenes(), 1);
    }

    void dragsAndDoubleClicksAtSceneCoordinates() {
        ViewInput::drag(view, QPointF(125, 125), QPointF(325, 225));
        QCOMPARE(square->pos(), QPointF(300, 200));
        ViewInput::doubleClick(view, QPointF(310, 210));
        QCOMPARE(square->doubleClickedAt, QPointF(310, 210));
    }

    void picksFromContextMenus_data() {
        QTest::addColumn<QStringList>("path");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("an action") << QStringList{"Copiar"} << "&Copiar";
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

    void typesIntoTheFocusedWidget() {
        QLineEdit edit;
        edit.show();
        QApplication::setActiveWindow(&edit);
        edit.setFocus();
        QCOMPARE(WindowBench::focused(), &edit);
        WindowBench::type(QString::fromUtf8("Ação"));
        QCOMPARE(edit.text(), QString::fromUtf8("Ação"));
    }

    void readsTheColoursOfRegions() {
        const QImage picture = PictureProbe::grab(view->viewport());
        const QPoint corner = view->mapFromScene(QPointF(100, 100));
        const QRect inside(corner + QPoint(2, 2), QSize(46, 46));
        QVERIFY2(PictureProbe::share(picture, inside, Qt::red) > 0.99,
                 qPrintable(PictureProbe::keep(picture, "windowbench")));
        QCOMPARE(PictureProbe::share(picture, inside.translated(100, 0), Qt::red), 0.0);
        QCOMPARE(PictureProbe::mean(picture, inside), QColor(Qt::red));
    }
};

SELVORA_TEST_MAIN(TestWindowBench)
#include "tst_windowbench.moc"
