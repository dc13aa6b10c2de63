#ifndef SELVORA_FEATURE_TRANSFORMTAB_H
#define SELVORA_FEATURE_TRANSFORMTAB_H

#include <QList>
#include <QWidget>

class QComboBox;
class QDoubleSpinBox;
class QPushButton;
class QSpinBox;

namespace selvora {
class TwoStageToolTip;

namespace feature {

// The tab "Transformar": size and position in percent of the canvas, the layer buttons, the
// transparency and the hover effect. The panel reads and sets the controls directly; the tab
// only builds them.
class TransformTab : public QWidget {
    Q_OBJECT
public:
    TransformTab(TwoStageToolTip* tips, QWidget* parent = nullptr);

    // The groups, enabled and disabled as wholes.
    QList<QWidget*> groups() const;

    QWidget* sizeGroup = nullptr;
    QWidget* positionGroup = nullptr;
    QWidget* layerGroup = nullptr;
    QWidget* transparencyGroup = nullptr;
    QWidget* hoverGroup = nullptr;

    QDoubleSpinBox* width = nullptr;
    QDoubleSpinBox* height = nullptr;
    QDoubleSpinBox* left = nullptr;
    QDoubleSpinBox* top = nullptr;
    QPushButton* bringForward = nullptr;
    QPushButton* sendBackward = nullptr;
    QPushButton* bringToFront = nullptr;
    QPushButton* sendToBack = nullptr;
    QSpinBox* transparency = nullptr;
    QComboBox* hover = nullptr;

private:
    void createSizeAndPosition(TwoStageToolTip* tips);
    void createLayer(TwoStageToolTip* tips);
    void createTransparencyAndHover(TwoStageToolTip* tips);
};

} // namespace feature
} // namespace selvora

#endif
