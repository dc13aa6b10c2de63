#include "feature/PanelControls.h"

#include "feature/ClampingSpinBox.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QToolButton>

namespace selvora {
namespace feature {

namespace {

void decorate(QAbstractButton* button, const QString& name, const QString& picture,
              const QString& tip) {
    button->setObjectName(name);
    button->setIcon(QIcon(picture));
    button->setIconSize(QSize(PanelControls::kIconSize, PanelControls::kIconSize));
    button->setToolTip(tip);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

} // namespace

QPushButton* PanelControls::iconButton(const QString& name, const QString& picture,
                                       const QString& tip, bool checkable, QWidget* parent) {
    auto* button = new QPushButton(parent);
    decorate(button, name, picture, tip);
    button->setCheckable(checkable);
    return button;
}

QToolButton* PanelControls::colourButton(const QString& name, const QString& picture,
                                         const QString& tip, QWidget* parent) {
    auto* button = new QToolButton(parent);
    decorate(button, name, picture, tip);
    button->setStyleSheet("QToolButton{border: 1px outset darkgrey; border-radius: 3px;};");
    return button;
}

QLabel* PanelControls::pictureLabel(const QString& picture, const QString& style, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setPixmap(QPixmap(picture));
    label->setScaledContents(true);
    label->setStyleSheet(style);
    label->setFixedSize(kIconSize, kIconSize);
    return label;
}

QDoubleSpinBox* PanelControls::percentBox(const QString& name, double initial, QWidget* parent) {
    auto* box = new ClampingSpinBox<QDoubleSpinBox>(parent);
    box->setObjectName(name);
    box->setRange(0, 100);
    box->setSuffix(" %");
    box->setValue(initial);
    box->setMinimumWidth(90);
    // One change per committed value, not one per key: each change is a step of the history.
    box->setKeyboardTracking(false);
    return box;
}

QHBoxLayout* PanelControls::row(const QList<QWidget*>& widgets, int indent) {
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    if (indent > 0)
        layout->addSpacing(indent);
    for (QWidget* widget : widgets)
        layout->addWidget(widget);
    layout->addStretch();
    return layout;
}

} // namespace feature
} // namespace selvora
