#ifndef SELVORA_FEATURE_PANELCONTROLS_H
#define SELVORA_FEATURE_PANELCONTROLS_H

#include <QList>
#include <QString>

class QAbstractButton;
class QDoubleSpinBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;
class QWidget;

namespace selvora {
namespace feature {

// The small widgets that the tabs of the properties panel are made of, alike in every tab.
class PanelControls {
public:
    static constexpr int kIconSize = 20;
    static constexpr int kIndent = 10;

    static QPushButton* iconButton(const QString& name, const QString& picture, const QString& tip,
                                   bool checkable, QWidget* parent);
    static QToolButton* colourButton(const QString& name, const QString& picture,
                                     const QString& tip, QWidget* parent);
    static QLabel* pictureLabel(const QString& picture, const QString& style, QWidget* parent);
    // A percent of the canvas: 0 to 100, Qt's step and decimals, a typed excess clamped.
    static QDoubleSpinBox* percentBox(const QString& name, double initial, QWidget* parent);
    // The widgets side by side, moved right by the indent, then a stretch.
    static QHBoxLayout* row(const QList<QWidget*>& widgets, int indent = 0);
};

} // namespace feature
} // namespace selvora

#endif
