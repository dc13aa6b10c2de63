#include "feature/TransformTab.h"

#include "app/Definitions.h"
#include "app/TwoStageToolTip.h"
#include "feature/ClampingSpinBox.h"
#include "feature/PanelControls.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace selvora {
namespace feature {

namespace {

QString longTip(const QString& title, const QString& text) {
    return title + ":<br/><br/><font size=\"2\">" + text + "</font>";
}

// The hover kinds offered here; "fade" and "border" exist in the model but not in this list.
constexpr int kHoverKinds = 8;

} // namespace

TransformTab::TransformTab(TwoStageToolTip* tips, QWidget* parent) : QWidget(parent) {
    createSizeAndPosition(tips);
    createLayer(tips);
    createTransparencyAndHover(tips);

    auto* sizeAndPosition = new QHBoxLayout;
    sizeAndPosition->addWidget(sizeGroup);
    sizeAndPosition->addWidget(positionGroup);
    auto* layerAndTransparency = new QHBoxLayout;
    layerAndTransparency->addWidget(layerGroup);
    layerAndTransparency->addStretch(9999);
    layerAndTransparency->addWidget(transparencyGroup);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(sizeAndPosition);
    layout->addSpacing(3);
    layout->addLayout(layerAndTransparency);
    layout->addSpacing(3);
    layout->addWidget(hoverGroup);
    layout->addStretch(9999);
}

QList<QWidget*> TransformTab::groups() const {
    return {sizeGroup, positionGroup, layerGroup, transparencyGroup, hoverGroup};
}

void TransformTab::createSizeAndPosition(TwoStageToolTip* tips) {
    struct Field {
        const char* name;
        const char* picture;
        QDoubleSpinBox* TransformTab::*box;
        bool size;
        const char* tip;
        const char* text;
    };
    static const Field kFields[] = {
        {"width", ":/imagens/width", &TransformTab::width, true, "Largura",
         "Define a largura da mídia em foco."},
        {"height", ":/imagens/height", &TransformTab::height, true, "Altura",
         "Define a altura da mídia em foco."},
        {"left", ":/imagens/X", &TransformTab::left, false, "Eixo x",
         "Define a posição da mídia no eixo X."},
        {"top", ":/imagens/Y", &TransformTab::top, false, "Eixo y",
         "Define a posição da mídia no eixo Y."},
    };
    sizeGroup = new QWidget(this);
    positionGroup = new QWidget(this);
    auto* sizeGrid = new QGridLayout(sizeGroup);
    auto* positionGrid = new QGridLayout(positionGroup);
    for (const Field& field : kFields) {
        QWidget* group = field.size ? sizeGroup : positionGroup;
        QGridLayout* grid = field.size ? sizeGrid : positionGrid;
        const QString style =
            field.size ? "border: none; font: 12px; margin: 0px 0;" : "border: none; font: 12px;";
        QLabel* label = PanelControls::pictureLabel(field.picture, style, group);
        this->*field.box = PanelControls::percentBox(field.name, 100, group);
        const int row = grid->rowCount();
        grid->addWidget(label, row, 0);
        grid->addWidget(this->*field.box, row, 1);
        const QString tip = QString::fromUtf8(field.tip);
        tips->addTip(label, tip, longTip(tip, QString::fromUtf8(field.text)));
    }
}

void TransformTab::createLayer(TwoStageToolTip* tips) {
    struct Button {
        const char* picture;
        QPushButton* TransformTab::*button;
        int row;
        const char* tip;
        const char* text;
    };
    static const Button kButtons[] = {
        {":/imagens/bringForward", &TransformTab::bringForward, 0, "Avançar",
         "Move a mídia para uma camada a frente."},
        {":/imagens/sendBackward", &TransformTab::sendBackward, 0, "Recuar",
         "Move a mídia uma camada para trás."},
        {":/imagens/bringToFront", &TransformTab::bringToFront, 1, "Trazer para frente",
         "Move a mídia para a camada mais a frente."},
        {":/imagens/sendToBack", &TransformTab::sendToBack, 1, "Enviar para trás",
         "Move a mídia para a primeira camada."},
    };
    layerGroup = new QWidget(this);
    auto* grid = new QGridLayout(layerGroup);
    int column = 0;
    for (const Button& entry : kButtons) {
        const QString picture = QString::fromUtf8(entry.picture);
        auto* button =
            PanelControls::iconButton(picture.mid(10), picture, QString(), false, layerGroup);
        this->*entry.button = button;
        grid->addWidget(button, entry.row, column++ % 2);
        const QString tip = QString::fromUtf8(entry.tip);
        tips->addTip(button, tip, longTip(tip, QString::fromUtf8(entry.text)));
    }
}

void TransformTab::createTransparencyAndHover(TwoStageToolTip* tips) {
    transparencyGroup = new QWidget(this);
    auto* transparencyLabel = new QLabel(tr("Transparência:"), transparencyGroup);
    auto* box = new ClampingSpinBox<QSpinBox>(transparencyGroup);
    box->setObjectName("transparency");
    box->setRange(0, 100);
    box->setSuffix(" %");
    box->setValue(0);
    box->setKeyboardTracking(false);
    transparency = box;
    auto* transparencyLayout = new QVBoxLayout(transparencyGroup);
    transparencyLayout->addWidget(transparencyLabel);
    transparencyLayout->addWidget(transparency);
    tips->addTip(transparencyLabel, tr("Transparência"),
                 longTip(tr("Transparência"),
                         tr("Define a porcentagem da transparência. Pode variar 0% (totalmente "
                            "opaco) a 100 % (totalmente transparente).")));

    hoverGroup = new QWidget(this);
    QLabel* hoverLabel = PanelControls::pictureLabel(":/imagens/hover", QString(), hoverGroup);
    hover = new QComboBox(hoverGroup);
    hover->setObjectName("hover");
    hover->addItem(QString(), -1);
    for (int kind = 0; kind < kHoverKinds; ++kind)
        hover->addItem(Definitions::getkHoverTypeLegendBr(kind), kind);
    auto* hoverLayout = new QHBoxLayout(hoverGroup);
    hoverLayout->addWidget(hoverLabel);
    hoverLayout->addWidget(hover);
    hoverLayout->addStretch();
    tips->addTip(hoverLabel, tr("Foco"),
                 longTip(tr("Foco"), tr("Define a animação de foco da mídia.")));
}

} // namespace feature
} // namespace selvora
