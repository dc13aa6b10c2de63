#include "feature/ShapeTab.h"

#include "app/Definitions.h"
#include "feature/PanelControls.h"

#include <QComboBox>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace selvora {
namespace feature {

namespace {

constexpr int kOutlineWidths = 9;
constexpr int kOutlineStyles = 5;

QComboBox* legendCombo(const QString& name, int count, QString (*legend)(int), QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    for (int value = 0; value < count; ++value)
        combo->addItem(legend(value), value);
    return combo;
}

} // namespace

ShapeTab::ShapeTab(QWidget* parent) : QWidget(parent) {
    fillNull = PanelControls::colourButton("colorFillNull", ":/imagens/null",
                                           tr("Sem cor de preenchimento"), this);
    fill = PanelControls::colourButton("colorFill", ":/imagens/fillColor",
                                       tr("Cor de preenchimento"), this);
    outlineNull = PanelControls::colourButton("colorOutlineNull", ":/imagens/null",
                                              tr("Sem cor de contorno"), this);
    outline = PanelControls::colourButton("colorOutline", ":/imagens/outlineColor",
                                          tr("Cor de contorno"), this);
    outlineWidth =
        legendCombo("widthOutline", kOutlineWidths, &Definitions::getkOutlineWidthLegend, this);
    outlineStyle =
        legendCombo("styleOutline", kOutlineStyles, &Definitions::getkOutlineStyleLegend, this);

    const int indent = PanelControls::kIndent;
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Preenchimento:"), this));
    layout->addLayout(PanelControls::row({new QLabel(tr("Cor:"), this), fillNull, fill}, indent));
    layout->addSpacing(15);
    layout->addWidget(new QLabel(tr("Contorno:"), this));
    layout->addLayout(
        PanelControls::row({new QLabel(tr("Cor:"), this), outlineNull, outline}, indent));
    layout->addLayout(
        PanelControls::row({new QLabel(tr("Espessura:"), this), outlineWidth}, indent));
    layout->addLayout(PanelControls::row({new QLabel(tr("Estilo:"), this), outlineStyle}, indent));
    layout->addStretch();
}

} // namespace feature
} // namespace selvora
