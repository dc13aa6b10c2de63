#include "feature/TextTab.h"

#include "feature/PanelControls.h"

#include <QComboBox>
#include <QFontComboBox>
#include <QGridLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace selvora {
namespace feature {

TextTab::TextTab(QWidget* parent) : QWidget(parent) {
    font = new QFontComboBox(this);
    font->setObjectName("fontFamily");
    font->setEditable(true); // an editable combo completes what is typed
    font->setMaximumWidth(170);
    font->setMaxVisibleItems(20);

    size = new QComboBox(this);
    size->setObjectName("fontSize");
    size->setEditable(true);
    size->setMaximumWidth(100);
    size->addItems({"8", "9", "10", "11", "12", "14", "16", "18", "20", "22", "24", "26", "28",
                    "36", "42", "56", "64", "72"});
    // Letters never reach the model; a size out of range is refused at the key.
    size->setValidator(new QIntValidator(kMinFontSize, kMaxFontSize, size));
    size->setInsertPolicy(QComboBox::NoInsert);

    struct Button {
        QPushButton* TextTab::*button;
        const char* name;
        const char* picture;
        const char* tip;
        bool checkable;
    };
    static const Button kButtons[] = {
        {&TextTab::justify, "textJustify", ":/imagens/textJustify", "Justificar", true},
        {&TextTab::alignLeft, "textLeft", ":/imagens/textLeft", "Alinhar a Esquerda", true},
        {&TextTab::alignCenter, "textMiddle", ":/imagens/textMiddle", "Centralizar", true},
        {&TextTab::alignRight, "textRight", ":/imagens/textRight", "Alinhar a Direita", true},
        {&TextTab::colour, "colorFont", ":/imagens/fillColor", "Cor da fonte", false},
        {&TextTab::bold, "negrito", ":/imagens/negrito", "Negrito", true},
        {&TextTab::italic, "italico", ":/imagens/italico", "Itálico", true},
        {&TextTab::underline, "sublinhado", ":/imagens/sublinhado", "Sublinhado", true},
    };
    for (const Button& entry : kButtons)
        this->*entry.button = PanelControls::iconButton(entry.name, entry.picture, tr(entry.tip),
                                                        entry.checkable, this);

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Fonte:"), this), 0, 0);
    grid->addLayout(PanelControls::row({font}), 0, 1);
    grid->addWidget(new QLabel(tr("Tamanho:"), this), 1, 0);
    grid->addLayout(PanelControls::row({size}), 1, 1);
    grid->addWidget(new QLabel(tr("Parágrafo:"), this), 2, 0);
    grid->addLayout(PanelControls::row({justify, alignLeft, alignCenter, alignRight}), 2, 1);
    grid->addWidget(new QLabel(tr("Texto:"), this), 3, 0);
    grid->addLayout(PanelControls::row({colour, bold, italic, underline}), 3, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch();
}

} // namespace feature
} // namespace selvora
