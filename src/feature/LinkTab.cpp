#include "feature/LinkTab.h"

#include "app/Definitions.h"
#include "app/KeyChoices.h"
#include "app/TimeText.h"
#include "app/TwoStageToolTip.h"
#include "document/Scene.h"
#include "feature/PanelControls.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <iterator>

namespace selvora {
namespace feature {

LinkTab::LinkTab(TwoStageToolTip* tips, QWidget* parent) : QWidget(parent) {
    target = new QComboBox(this);
    target->setObjectName("link");
    start = new QLineEdit(this);
    start->setObjectName("timeEvent");
    start->setFixedWidth(80);
    start->setInputMask("00:00:00");
    start->setText("00:00:00");
    url = new QLineEdit(this);
    url->setObjectName("url");
    key = new QComboBox(this);
    key->setObjectName("key");

    auto* targetLabel = new QLabel(tr("Ir para Cena:"), this);
    auto* startLabel = new QLabel(tr("Início da Cena:"), this);
    auto* keyLabel = new QLabel(tr("Tecla:"), this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Elo Interativo para Cena:"), this));
    layout->addLayout(PanelControls::row({targetLabel, target}, PanelControls::kIndent));
    layout->addLayout(PanelControls::row({startLabel, start}, PanelControls::kIndent));
    layout->addSpacing(15);
    layout->addWidget(new QLabel(tr("Elo Interativo para página Web:"), this));
    layout->addLayout(
        PanelControls::row({new QLabel(tr("Endereço da web:"), this)}, PanelControls::kIndent));
    layout->addLayout(PanelControls::row({url}, PanelControls::kIndent));
    layout->addSpacing(15);
    layout->addLayout(PanelControls::row({keyLabel, key}));
    layout->addStretch();

    tips->addTip(startLabel, QString(),
                 tr("<font size=\"2\">Define para qual instante de tempo, a cena escolhida na "
                    "opção “Ir para Cena”, é iniciada.</font>"));
    tips->addTip(targetLabel, QString(),
                 tr("<font size=\"2\">Define qual cena deve ser iniciada ao acionar o "
                    "elo.</font>"));
    tips->addTip(keyLabel, QString(),
                 tr("<font size=\"2\">Define a tecla de atalho que aciona o elo.</font>"));
    fillKeys();
}

void LinkTab::fillScenes(const QList<document::Scene*>& scenes) {
    const QVariant chosen = target->currentData();
    target->clear();
    target->addItem(QString(), -1);
    for (const document::Scene* scene : scenes)
        target->addItem(scene->getLabel(), scene->getId());
    target->setCurrentIndex(qMax(0, target->findData(chosen)));
}

void LinkTab::fillKeys() {
    // The keys never change: filled once, the list stays, with the entry chosen in it. Reading
    // the key pictures again at every change of scene was a good part of the change's time.
    if (key->count() > 1)
        return;
    KeyChoices::fill(key);
}

int LinkTab::timeSeconds(const QStringList& fields) {
    int seconds = 0;
    for (const QString& field : fields)
        seconds = seconds * 60 + field.trimmed().toInt();
    return seconds;
}

int LinkTab::seconds() const {
    return qBound(0, timeSeconds(start->text().split(':')), TimeText::kMaxSeconds);
}

void LinkTab::setSeconds(int seconds) {
    start->setText(TimeText::timeString(qBound(0, seconds, TimeText::kMaxSeconds)));
}

} // namespace feature
} // namespace selvora
