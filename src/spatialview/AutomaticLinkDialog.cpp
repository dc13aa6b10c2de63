#include "spatialview/AutomaticLinkDialog.h"

#include "document/Document.h"
#include "document/Scene.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace selvora {
namespace spatialview {

AutomaticLinkDialog::AutomaticLinkDialog(document::Document* document, document::Scene* scene,
                                         QWidget* parent)
    : CanvasDialog(parent, tr("Elo automático da cena."), QSize(350, 150)), document_(document),
      scene_(scene) {
    at_ = timeEdit(scene_ ? scene_->getTotalTime() : 0);
    target_ = sceneChoices(document_);
    instant_ = timeEdit(0);
    auto* grid = new QGridLayout();
    grid->addWidget(new QLabel(tr("Aos"), this), 0, 0);
    grid->addWidget(at_, 0, 1);
    grid->addWidget(new QLabel(tr("Ir para"), this), 1, 0);
    grid->addWidget(target_, 1, 1);
    grid->addWidget(new QLabel(tr("No instante"), this), 2, 0);
    grid->addWidget(instant_, 2, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(grid);
    addButtons(column);
    connect(saveButton(), &QPushButton::clicked, this, &AutomaticLinkDialog::save);
}

void AutomaticLinkDialog::tell(const QString& text) {
    CanvasDialog::tell(QMessageBox::Information, tr("Elo automático da cena"), text);
}

void AutomaticLinkDialog::save() {
    if (!scene_)
        return;
    const int target = target_->currentData().toInt();
    if (target == -1) {
        tell(tr("Selecione no campo \"Ir para\" qual a cena o elo automático deve acionar."));
        return;
    }
    const int at = seconds(at_);
    if (at > scene_->getTotalTime()) {
        tell(tr("A Cena \"%1\" tem o tempo total de \"%2\". O instante de tempo em que o elo "
                "automático é acionado não pode ser maior que o tempo total da cena.")
                 .arg(scene_->getLabel(), timeText(scene_->getTotalTime())));
        return;
    }
    // To itself at another instant is a loop, and allowed.
    if (at_->text() == instant_->text() && target == scene_->getId()) {
        tell(tr("A Cena \"%1\" não pode ter um elo automático para ela mesmo que vá para o mesmo "
                "instante de tempo em que é acionado.")
                 .arg(scene_->getLabel()));
        return;
    }
    QHash<QString, QString> properties;
    properties.insert(QStringLiteral("link"), QString::number(target));
    properties.insert(QStringLiteral("timeEvent"), QString::number(seconds(instant_)));
    document_->createSync(scene_, -1, true, Definitions::kSyncType::goTo, at, properties, -1);
    close();
}

} // namespace spatialview
} // namespace selvora
