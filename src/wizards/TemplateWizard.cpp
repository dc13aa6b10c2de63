#include "wizards/TemplateWizard.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Region.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QWizardPage>

namespace selvora {
namespace wizards {

using document::Scene;
using document::Template;
using SyncType = Definitions::kSyncType;

TemplateWizard::TemplateWizard(document::Document* document, QWidget* parent, Scene* scene)
    : QWizard(parent), document_(document), scene_(scene      ? scene
                                                   : document ? document->getScene(-1)
                                                              : nullptr) {
    createObjects();
    addPage(createStartPage());
    addPage(createEndPage());
    setButtonText(QWizard::CancelButton, tr("Cancelar"));
    setButtonText(QWizard::NextButton, tr("Próximo"));
    setButtonText(QWizard::BackButton, tr("Voltar"));
    setButtonText(QWizard::FinishButton, tr("Terminar"));
    setConnections();
    setWindowTitle(tr("Template"));
}

void TemplateWizard::createObjects() {
    for (Sentence* sentence : {&start_, &end_}) {
        sentence->templateA = new QComboBox;
        sentence->templateB = new QComboBox;
        sentence->relation = new QComboBox;
        sentence->relation->addItems({QString(), tr("Antes do"), tr("Depois do"), tr("Igual ao"),
                                      tr("Com o fim do"), tr("Com o início do")});
        sentence->interval = new QSpinBox;
        sentence->interval->setRange(1, 1000);
        sentence->interval->setSuffix(tr(" s"));
        sentence->interval->setValue(1);
        sentence->interval->setEnabled(false);
        sentence->nameA = new QLabel;
        sentence->nameB = new QLabel;
        sentence->intervalLabel = new QLabel(tr("1 segundo"));
        sentence->intervalLabel->hide();
    }
}

QWizardPage* TemplateWizard::createStartPage() {
    return createPage(start_, tr("Definição de Início"));
}

QWizardPage* TemplateWizard::createEndPage() {
    return createPage(end_, tr("Definição do Fim"));
}

// The thumbnail of each template of the scene, drawn region by region at a fifth of the canvas,
// stands in both picture combos with the template's id.
QWizardPage* TemplateWizard::createPage(Sentence& sentence, const QString& title) {
    auto* page = new QWizardPage;
    page->setTitle(title);
    const int width = Definitions::getViewWidth() / 5;
    const int height = Definitions::getViewHeight() / 5;
    QGraphicsScene thumbnails(0, 0, width, height);
    QGraphicsView view(&thumbnails);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setFrameShape(QFrame::NoFrame);
    view.setFixedSize(width, height);
    const QList<int> templates = scene_ ? scene_->getAllTemplates() : QList<int>();
    for (int id : templates) {
        const Template* templ = document_->getTemplate(id);
        if (!templ)
            continue;
        thumbnails.clear();
        for (const document::Region* region : templ->getAllRegions()) {
            auto* rect =
                thumbnails.addRect(QRectF(region->getLeftPx(width), region->getTopPx(height),
                                          region->getWidthPx(width), region->getHeightPx(height)),
                                   QPen(Qt::black), QBrush(Qt::lightGray));
            rect->setZValue(region->getLayer().toInt());
            rect->setData(0, QString::number(region->getId()));
            rect->setData(1, QString::number(id));
            rect->setFlags(QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsFocusable);
        }
        const QIcon icon(view.grab());
        sentence.templateA->addItem(icon, QString(), id);
        sentence.templateB->addItem(icon, QString(), id);
    }
    for (QComboBox* combo : {sentence.templateA, sentence.templateB})
        combo->setIconSize(QSize(width, height));
    sentence.templateA->setCurrentIndex(0);
    sentence.templateB->setCurrentIndex(sentence.templateB->count() > 1 ? 1 : 0);
    updateNames(sentence);

    auto* pictures = new QHBoxLayout;
    pictures->addWidget(sentence.templateA);
    pictures->addStretch();
    pictures->addWidget(sentence.templateB);
    auto* words = new QHBoxLayout;
    words->addWidget(sentence.nameA);
    words->addWidget(sentence.intervalLabel);
    words->addWidget(sentence.relation);
    words->addWidget(sentence.nameB);
    words->addStretch();
    auto* intervalRow = new QHBoxLayout;
    intervalRow->addWidget(sentence.interval);
    intervalRow->addStretch();
    auto* interval = new QGroupBox(tr("Intervalo:"));
    interval->setLayout(intervalRow);
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(pictures);
    layout->addLayout(words);
    layout->addStretch();
    layout->addWidget(interval);
    return page;
}

void TemplateWizard::setConnections() {
    using Index = void (QComboBox::*)(int);
    const Index changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(end_.templateA, changed, this, &TemplateWizard::updateTemplateBEndBox);
    connect(end_.templateB, changed, this, &TemplateWizard::updateTemplateAEndBox);
    connect(start_.templateA, changed, this, &TemplateWizard::updateTemplateBStartBox);
    connect(start_.templateB, changed, this, &TemplateWizard::updateTemplateAStartBox);
    connect(start_.relation, changed, this, &TemplateWizard::enableStartInterval);
    connect(end_.relation, changed, this, &TemplateWizard::enableEndInterval);
    connect(start_.interval, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &TemplateWizard::updateTimeStartLabel);
    connect(end_.interval, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &TemplateWizard::updateTimeEndLabel);
}

int TemplateWizard::idOf(const QComboBox* combo) {
    const QVariant data = combo->currentData();
    return data.isValid() ? data.toInt() : -1;
}

QString TemplateWizard::labelOf(int templateId) const {
    const Template* templ = document_->getTemplate(templateId);
    return templ ? templ->getLabel() : QString();
}

void TemplateWizard::updateNames(Sentence& sentence) {
    const QString subject =
        &sentence == &start_ ? tr("O %1 vai inicar ") : tr("O %1 vai terminar ");
    sentence.nameA->setText(subject.arg(labelOf(idOf(sentence.templateA))));
    sentence.nameB->setText(labelOf(idOf(sentence.templateB)));
}

// ---------------------------------------------------------------- the sentence follows itself

void TemplateWizard::enableInterval(Sentence& sentence, int index) {
    const bool timed = index != none && index != equal;
    sentence.interval->setEnabled(timed);
    sentence.intervalLabel->setVisible(timed);
}

void TemplateWizard::enableStartInterval(int index) {
    enableInterval(start_, index);
}

void TemplateWizard::enableEndInterval(int index) {
    enableInterval(end_, index);
}

void TemplateWizard::updateTimeLabel(Sentence& sentence, int value) {
    sentence.intervalLabel->setText(value == 1 ? tr("%1 segundo").arg(value)
                                               : tr("%1 segundos").arg(value));
}

void TemplateWizard::updateTimeStartLabel(int value) {
    updateTimeLabel(start_, value);
}

void TemplateWizard::updateTimeEndLabel(int value) {
    updateTimeLabel(end_, value);
}

void TemplateWizard::keepApart(Sentence& sentence, bool changedA, int index, Sentence& other) {
    QComboBox* changed = changedA ? sentence.templateA : sentence.templateB;
    QComboBox* opposite = changedA ? sentence.templateB : sentence.templateA;
    // A and B are never the same template.
    if (opposite->currentIndex() == index && opposite->count() > 1)
        opposite->setCurrentIndex(index == 0 ? 1 : 0);
    updateNames(sentence);
    // The two pages always show the same pair.
    QComboBox* mirror = changedA ? other.templateA : other.templateB;
    if (mirror->currentIndex() != changed->currentIndex())
        mirror->setCurrentIndex(changed->currentIndex());
}

void TemplateWizard::updateTemplateBStartBox(int index) {
    keepApart(start_, true, index, end_);
}

void TemplateWizard::updateTemplateAStartBox(int index) {
    keepApart(start_, false, index, end_);
}

void TemplateWizard::updateTemplateBEndBox(int index) {
    keepApart(end_, true, index, start_);
}

void TemplateWizard::updateTemplateAEndBox(int index) {
    keepApart(end_, false, index, start_);
}

// ---------------------------------------------------------------- finishing

void TemplateWizard::accept() {
    createSyncs();
    setRelations();
    QWizard::accept();
}

int TemplateWizard::startTime(int templateId) const {
    const document::Sync* sync = scene_->getSync(SyncType::start, templateId, false);
    return sync ? sync->getTime() : 0;
}

// Both templates must still stand on the scene, which may have changed while the wizard was open.
bool TemplateWizard::bothOnScene() const {
    const int a = idOf(start_.templateA);
    const int b = idOf(start_.templateB);
    return scene_ && a != b && scene_->getAllTemplates().contains(a) &&
           scene_->getAllTemplates().contains(b) && document_->getTemplate(a) &&
           document_->getTemplate(b);
}

void TemplateWizard::createSyncs() {
    if (!bothOnScene())
        return;
    createStartSyncs();
    createEndSyncs();
}

void TemplateWizard::createStartSyncs() {
    Scene* scene = scene_;
    const int a = idOf(start_.templateA);
    const int b = idOf(start_.templateB);
    const int interval = start_.interval->value();
    int timeA = 0;
    int timeB = 0;
    switch (start_.relation->currentIndex()) {
    case none:
    case equal:
        break;
    case before:
        timeB = interval;
        break;
    case after:
        timeA = interval;
        break;
    default:
        return; // offered, and without effect
    }
    const int relation = start_.relation->currentIndex();
    if ((relation == before || relation == after) && scene->getTotalTime() < interval)
        scene->setTotalTime(scene->getTotalTime() + interval + 1);
    document_->createSync(scene, a, false, SyncType::start, timeA, -1);
    document_->createSync(scene, b, false, SyncType::start, timeB, -1);
}

// The templates are those the combos show, by id: the ids of a scene's templates need not be 0
// and 1.
void TemplateWizard::createEndSyncs() {
    Scene* scene = scene_;
    const int a = idOf(end_.templateA);
    const int b = idOf(end_.templateB);
    const int interval = end_.interval->value();
    switch (end_.relation->currentIndex()) {
    case none:
    case equal:
        if (scene->getTotalTime() == 0)
            scene->setTotalTime(1);
        document_->createSync(scene, a, false, SyncType::stop, scene->getTotalTime(), -1);
        document_->createSync(scene, b, false, SyncType::stop, scene->getTotalTime(), -1);
        break;
    case before:
    case after: {
        const bool aFirst = end_.relation->currentIndex() == before;
        const int first = aFirst ? a : b;
        const int second = aFirst ? b : a;
        const int start = startTime(first);
        if (start >= scene->getTotalTime() - interval)
            scene->setTotalTime(start + interval + 1);
        const int total = scene->getTotalTime();
        document_->createSync(scene, first, false, SyncType::stop, total - interval, -1);
        document_->createSync(scene, second, false, SyncType::stop, total, -1);
        break;
    }
    default:
        break; // offered, and without effect
    }
}

void TemplateWizard::setRelations() {
    if (!bothOnScene())
        return;
    const int a = idOf(start_.templateA);
    const int b = idOf(start_.templateB);
    Template* first = document_->getTemplate(a);
    Template* second = document_->getTemplate(b);
    first->addRelation(b, Definitions::kTemplateType::templateA);
    second->addRelation(a, Definitions::kTemplateType::templateB);
    // The start state shows at once.
    scene_->executeSyncs(0, false, SyncType::goTo);
}

} // namespace wizards
} // namespace selvora
