#include "app/ShapePalette.h"

#include "app/Definitions.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QToolBar>
#include <QVBoxLayout>

namespace selvora {
namespace menu {

namespace {
using Shape = Definitions::kShapeType;

// Top to bottom, four shapes a row.
constexpr Shape kInsertRows[][4] = {
    {Shape::rectangle, Shape::rounded_rect, Shape::cube_left, Shape::cube_right},
    {Shape::triangle, Shape::inverted_triangle, Shape::diamond, Shape::parallelogram_left},
    {Shape::circle, Shape::pentagon, Shape::hexagon, Shape::octogon},
    {Shape::star_four_points, Shape::star_five_points, Shape::star_six_points,
     Shape::star_eight_points},
    {Shape::trapeze_top, Shape::trapeze_bottom, Shape::trapeze_right, Shape::trapeze_left},
    {Shape::right_triangle1, Shape::right_triangle2, Shape::right_triangle3,
     Shape::right_triangle4},
    {Shape::plus, Shape::minus, Shape::multiplication, Shape::division},
    {Shape::equality, Shape::inequality, Shape::bracket_open, Shape::bracket_close},
    {Shape::arrow_right, Shape::arrow_left, Shape::arrow_top, Shape::arrow_bottom},
    {Shape::arrow_rect_bottom, Shape::arrow_rect_top, Shape::arrow_rect_left,
     Shape::arrow_rect_right},
    {Shape::balloon_rect1, Shape::balloon_rect2, Shape::balloon_rect3, Shape::balloon_rect4},
    {Shape::balloon1, Shape::balloon2, Shape::balloon3, Shape::balloon4},
    {Shape::balloonThought1, Shape::balloonThought2, Shape::balloonThought3,
     Shape::balloonThought4},
};

constexpr Shape kNone = Shape(-1);

// Top to bottom, eight shapes a row; the last row is short.
constexpr Shape kChangeRows[][8] = {
    {Shape::rectangle, Shape::rounded_rect, Shape::cube_left, Shape::cube_right, Shape::triangle,
     Shape::inverted_triangle, Shape::diamond, Shape::parallelogram_left},
    {Shape::right_triangle1, Shape::right_triangle2, Shape::right_triangle3, Shape::right_triangle4,
     Shape::trapeze_top, Shape::trapeze_bottom, Shape::trapeze_right, Shape::trapeze_left},
    {Shape::arrow_right, Shape::arrow_left, Shape::arrow_top, Shape::arrow_bottom, Shape::plus,
     Shape::minus, Shape::multiplication, Shape::division},
    {Shape::equality, Shape::inequality, Shape::bracket_open, Shape::bracket_close, Shape::circle,
     Shape::pentagon, Shape::hexagon, Shape::octogon},
    {Shape::star_four_points, Shape::star_five_points, Shape::star_six_points,
     Shape::star_eight_points, Shape::arrow_rect_bottom, Shape::arrow_rect_top,
     Shape::arrow_rect_left, Shape::arrow_rect_right},
    {Shape::balloon_rect1, Shape::balloon_rect2, Shape::balloon_rect3, Shape::balloon_rect4,
     Shape::balloon1, Shape::balloon2, Shape::balloon3, Shape::balloon4},
    {Shape::balloonThought1, Shape::balloonThought2, Shape::balloonThought3, Shape::balloonThought4,
     kNone, kNone, kNone, kNone},
};

template <typename Table>
void addRows(QMenu* menu, QVBoxLayout* layout, const QList<QAction*>& actions, const Table& rows) {
    const int side = static_cast<int>(Definitions::getSubButtonWidth());
    for (const auto& shapes : rows) {
        auto* row = new QToolBar(menu);
        row->setIconSize(QSize(side, side));
        row->setStyleSheet("QToolBar{background-color:#f0f0f0; border: 0px;}");
        for (Shape shape : shapes) {
            if (QAction* action = actions.value(static_cast<int>(shape), nullptr))
                row->addAction(action);
        }
        layout->addWidget(row);
    }
}
} // namespace

ShapePalette::ShapePalette(const QList<QAction*>& shapeActions, QWidget* parent, Rows rows)
    : QMenu(tr("Inserir Formas"), parent) {
    setIcon(QIcon(":/imagens/icones-Selvora_10"));
    auto* layout = new QVBoxLayout();
    if (rows == Rows::insert)
        addRows(this, layout, shapeActions, kInsertRows);
    else
        addRows(this, layout, shapeActions, kChangeRows);
    setLayout(layout);
    const int width = layout->sizeHint().width();
    move(static_cast<int>(Definitions::getScreenWidth() / 2) - width,
         3 * static_cast<int>(Definitions::getButtonHeight()));
    setFixedWidth(width);
    setStyleSheet("QMenu{background-color:#f0f0f0;border:0px;}");
}

void ShapePalette::showAtPointer() {
    showAt(QCursor::pos());
}

void ShapePalette::showAt(const QPoint& global) {
    // A plain show, not exec: a click on a shape closes it through the shape's slot.
    setGeometry(QRect(global, QSize(0, 0)));
    show();
    // Whole on the screen, as a menu keeps itself.
    if (const QScreen* screen = QGuiApplication::screenAt(pos())) {
        const QRect room = screen->availableGeometry();
        move(qMax(room.left(), qMin(x(), room.right() + 1 - width())),
             qMax(room.top(), qMin(y(), room.bottom() + 1 - height())));
    }
}

} // namespace menu
} // namespace selvora
