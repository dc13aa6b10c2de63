#include "spatialview/ShapeChoiceMenu.h"

#include "app/Definitions.h"
#include "app/Menu.h"

#include <QAction>
#include <QToolBar>
#include <QVBoxLayout>

namespace selvora {
namespace spatialview {

namespace {

// The texts of the shapes, in kShapeType order.
const char* const kTexts[] = {
#define SELVORA_SHAPE_TEXT(slot, shape, text) text,
    SELVORA_MENU_SHAPES(SELVORA_SHAPE_TEXT)
#undef SELVORA_SHAPE_TEXT
};
static_assert(sizeof(kTexts) / sizeof(kTexts[0]) == Definitions::kShapeCount, "one text per shape");

// The rows of the menu by icon word, left to right.
const char* const kRows[][8] = {
    {"rectangle", "rounded_rect", "cube_left", "cube_right", "triangle", "inverted_triangle",
     "diamond", "parallelogram_left"},
    {"right_triangle1", "right_triangle2", "right_triangle3", "right_triangle4", "trapeze_top",
     "trapeze_bottom", "trapeze_right", "trapeze_left"},
    {"arrow_right", "arrow_left", "arrow_top", "arrow_bottom", "plus", "minus", "multiplication",
     "division"},
    {"equality", "inequality", "bracket_open", "bracket_close", "circle", "pentagon", "hexagon",
     "octogon"},
    {"star_four_points", "star_five_points", "star_six_points", "star_eight_points",
     "arrow_rect_bottom", "arrow_rect_top", "arrow_rect_left", "arrow_rect_right"},
    {"balloon_rect1", "balloon_rect2", "balloon_rect3", "balloon_rect4", "balloon1", "balloon2",
     "balloon3", "balloon4"},
    {"balloonThought1", "balloonThought2", "balloonThought3", "balloonThought4", nullptr, nullptr,
     nullptr, nullptr},
};

} // namespace

ShapeChoiceMenu::ShapeChoiceMenu(const std::function<void(int)>& chosen, QWidget* parent)
    : QMenu(parent) {
    auto* rows = new QVBoxLayout;
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    const int side = qRound(Definitions::getSubButtonWidth());
    for (const auto& row : kRows) {
        auto* bar = new QToolBar(this);
        bar->setIconSize(QSize(side, side));
        bar->setStyleSheet("QToolBar{background-color:#f0f0f0; border: 0px;}");
        for (const char* word : row) {
            if (!word)
                break;
            const int value = static_cast<int>(Definitions::getkShapeType(QString(word)));
            auto* action =
                new QAction(QIcon(":/imagens/" + QString(word)), tr(kTexts[value]), this);
            action->setData(value);
            connect(action, &QAction::triggered, this, [this, chosen, value] {
                close();
                chosen(value);
            });
            bar->addAction(action);
        }
        rows->addWidget(bar);
    }
    setLayout(rows);
    setFixedSize(rows->sizeHint());
}

void ShapeChoiceMenu::showAt(const QPoint& globalPos) {
    setGeometry(QRect(globalPos, QSize(0, 0)));
    show();
}

} // namespace spatialview
} // namespace selvora
