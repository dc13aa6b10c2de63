#include "slideView/SlideListTreeChild.h"

#include "app/TimeText.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "document/Sync.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace selvora {
namespace slideView {

using document::Document;
using document::Scene;
using document::Sync;

SlideListTreeChild::SlideListTreeChild(Document* document, Scene* scene, Sync* sync,
                                       QWidget* parent)
    : QWidget(parent), document_(document), scene_(scene), sync_(sync) {
    setId(scene ? scene->getId() : -1);
    setRow(scene ? scene->getOrder() : -1);
    createLayout();
    setConnections();
    setDocumentConnections();
    setSyncConnections();
    for (Scene* each : document_->getSceneAll())
        setSceneConnections(each);
    load();
}

int SlideListTreeChild::timeSeconds(const QStringList& parts) {
    return TimeText::timeSeconds(parts);
}

void SlideListTreeChild::createLayout() {
    auto* outer = new QVBoxLayout;
    auto* head = new QHBoxLayout;
    removeButton_ = new QPushButton(QIcon(":/imagens/del"), QString(), this);
    removeButton_->setToolTip(tr("Remover Elo"));
    removeButton_->setFixedSize(19, 19);
    removeButton_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    removeButton_->setStyleSheet("border: 0px inset lightgray;");
    head->addWidget(removeButton_, 129);
    head->addWidget(new QLabel(tr("<b>Na cena atual:</b>"), this));
    head->addStretch();

    auto* fields = new QHBoxLayout;
    fields->addSpacing(26);
    auto* labels = new QVBoxLayout;
    for (const QString& text : {tr("Aos"), tr("Ir para"), tr("No instante")})
        labels->addWidget(new QLabel(text, this));
    auto* edits = new QVBoxLayout;
    timeEdit_ = new QLineEdit(this);
    eventEdit_ = new QLineEdit(this);
    for (QLineEdit* edit : {timeEdit_, eventEdit_}) {
        edit->setFixedWidth(80);
        edit->setInputMask("00:00:00");
    }
    targetCombo_ = new QComboBox(this);
    edits->addWidget(timeEdit_, 130);
    edits->addWidget(targetCombo_, 130);
    edits->addWidget(eventEdit_, 130);
    fields->addLayout(labels);
    fields->addLayout(edits);

    outer->addLayout(head);
    outer->addLayout(fields);
    outer->addStretch();
    outer->setSizeConstraint(QLayout::SetFixedSize);
    setLayout(outer);
    setOptions(-1);
}

void SlideListTreeChild::setConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(removeButton_, &QPushButton::clicked, this, &SlideListTreeChild::removeSync, unique);
    connect(timeEdit_, &QLineEdit::editingFinished, this, &SlideListTreeChild::updateSync, unique);
    connect(eventEdit_, &QLineEdit::editingFinished, this, &SlideListTreeChild::updateSync, unique);
    connect(targetCombo_, &QComboBox::currentTextChanged, this, &SlideListTreeChild::updateSync,
            unique);
}

void SlideListTreeChild::setDisconnections() {
    disconnect(removeButton_, &QPushButton::clicked, this, &SlideListTreeChild::removeSync);
    disconnect(timeEdit_, &QLineEdit::editingFinished, this, &SlideListTreeChild::updateSync);
    disconnect(eventEdit_, &QLineEdit::editingFinished, this, &SlideListTreeChild::updateSync);
    disconnect(targetCombo_, &QComboBox::currentTextChanged, this, &SlideListTreeChild::updateSync);
}

void SlideListTreeChild::setDocumentConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(document_, &Document::sceneAdded, this, &SlideListTreeChild::sceneAdded, unique);
    connect(document_, &Document::sceneRemoved, this, &SlideListTreeChild::setSceneDisconnections,
            unique);
    connect(document_, &Document::sceneRemovedId, this, &SlideListTreeChild::setOptions, unique);
    connect(document_, &Document::clear, this, &SlideListTreeChild::setDisconnections, unique);
    connect(document_, &Document::clear, this, &SlideListTreeChild::setDocumentDisconnections,
            unique);
    connect(document_, &Document::clear, this, &SlideListTreeChild::setSyncDisconnections, unique);
}

void SlideListTreeChild::setDocumentDisconnections() {
    disconnect(document_, nullptr, this, nullptr);
}

void SlideListTreeChild::setSyncConnections() {
    if (!sync_)
        return;
    connect(sync_, QOverload<int>::of(&Sync::timeChanged), this, &SlideListTreeChild::load,
            Qt::UniqueConnection);
    // Undo and redo give the link its old target back.
    connect(sync_, QOverload<QHash<QString, QString>>::of(&Sync::propertiesChanged), this,
            &SlideListTreeChild::load, Qt::UniqueConnection);
}

void SlideListTreeChild::setSyncDisconnections() {
    if (sync_)
        disconnect(sync_, nullptr, this, nullptr);
}

void SlideListTreeChild::setSceneConnections(Scene* scene) {
    if (scene)
        connect(scene, QOverload<QString>::of(&Scene::changeLabel), this,
                &SlideListTreeChild::refreshOptions, Qt::UniqueConnection);
}

void SlideListTreeChild::setSceneDisconnections(Scene* scene) {
    if (scene)
        disconnect(scene, QOverload<QString>::of(&Scene::changeLabel), this,
                   &SlideListTreeChild::refreshOptions);
}

void SlideListTreeChild::sceneAdded(Scene* scene) {
    setOptions(-1);
    setSceneConnections(scene);
}

void SlideListTreeChild::showLink() {
    // By id, not by label: the rename dialog lets two scenes share one label.
    bool known = false;
    const int link = sync_ ? sync_->getLink().toInt(&known) : -1;
    const int index = known ? targetCombo_->findData(link) : -1;
    targetCombo_->setCurrentIndex(index < 0 ? 0 : index);
}

void SlideListTreeChild::setOptions(int exclude) {
    setDisconnections();
    targetCombo_->clear();
    targetCombo_->addItem(QString(), -1);
    for (Scene* scene : document_->getSceneAllInOrder()) {
        if (scene->getId() != exclude)
            targetCombo_->addItem(scene->getLabel(), scene->getId());
    }
    showLink();
    setConnections();
}

void SlideListTreeChild::load() {
    if (!sync_ || !scene_)
        return;
    setDisconnections();
    const int time = sync_->getTime() == -1 ? scene_->getTotalTime() : sync_->getTime();
    timeEdit_->setText(TimeText::timeString(time));
    showLink();
    // Seconds in decimal; an empty one is second 0.
    eventEdit_->setText(
        TimeText::timeString(qBound(0, sync_->getTimeEvent().toInt(), TimeText::kMaxSeconds)));
    setConnections();
}

void SlideListTreeChild::removeSync() {
    if (!scene_ || !sync_)
        return;
    setDocumentDisconnections();
    // This very sync: ids of syncs put back by the history may be shared.
    scene_->removeSyncObject(sync_);
}

bool SlideListTreeChild::inform(const QString& text) {
    // The box runs an event loop: the row may be gone when it closes.
    QPointer<SlideListTreeChild> self(this);
    QPointer<QMessageBox> box = new QMessageBox(
        QMessageBox::Information, tr("Elo automático da cena"), text, QMessageBox::Ok, this);
    box->exec();
    delete box.data();
    return !self.isNull();
}

void SlideListTreeChild::updateSync() {
    if (!sync_ || !scene_)
        return;
    const int target = targetCombo_->currentData().toInt();
    if (target == -1) {
        setDisconnections();
        if (!inform(
                tr("Selecione no campo \"Ir para\" qual a cena o elo automático deve acionar.")))
            return;
        showLink();
        setConnections();
        return;
    }
    QHash<QString, QString> properties;
    properties.insert("link", QString::number(target));
    properties.insert("timeEvent", QString::number(TimeText::fromText(eventEdit_->text())));
    const int time = TimeText::fromText(timeEdit_->text());

    setSyncDisconnections();
    setDisconnections();
    if (QString::number(time) == properties.value("timeEvent") &&
        properties.value("link") == QString::number(scene_->getId())) {
        if (!inform(tr("A Cena \"%1\" não pode ter um elo automático para ela mesmo que vá "
                       "para o mesmo instante de tempo em que é acionado.")
                        .arg(scene_->getLabel())))
            return;
        properties.insert("link", QString());
        showLink();
    }
    // The scene or the sync may have gone while a box was open.
    if (sync_ && scene_ &&
        (properties.value("link") != sync_->getLink() ||
         properties.value("timeEvent") != sync_->getTimeEvent()))
        sync_->setProperties(properties);
    if (sync_ && scene_ && time != sync_->getTime()) {
        if (time <= scene_->getTotalTime()) {
            scene_->updateSyncs(sync_, sync_->getTime(), time);
        } else {
            if (!inform(tr("A Cena \"%1\" tem o tempo total de \"%2\". O instante de tempo em "
                           "que o elo automático é acionado não pode ser maior que o tempo total "
                           "da cena.")
                            .arg(scene_->getLabel(), TimeText::timeString(scene_->getTotalTime()))))
                return;
            if (sync_)
                timeEdit_->setText(TimeText::timeString(sync_->getTime()));
        }
    }
    setConnections();
    setSyncConnections();
}

} // namespace slideView
} // namespace selvora
