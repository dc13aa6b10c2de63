#ifndef SELVORA_FEATURE_SHAPETAB_H
#define SELVORA_FEATURE_SHAPETAB_H

#include <QWidget>

class QComboBox;
class QToolButton;

namespace selvora {
namespace feature {

// The tab "Formas": fill and outline of a shape. The panel reads and sets the controls
// directly; the tab only builds them.
class ShapeTab : public QWidget {
    Q_OBJECT
public:
    explicit ShapeTab(QWidget* parent = nullptr);

    QToolButton* fillNull = nullptr;
    QToolButton* fill = nullptr;
    QToolButton* outlineNull = nullptr;
    QToolButton* outline = nullptr;
    QComboBox* outlineWidth = nullptr;
    QComboBox* outlineStyle = nullptr;
};

} // namespace feature
} // namespace selvora

#endif
