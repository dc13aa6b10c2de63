#include "slideView/SlideListTreeRoot.h"

#include "app/Definitions.h"
#include "document/Document.h"
#include "document/Scene.h"
#include "document/Template.h"
#include "wizards/TemplateWizard.h"

#include <QAction>
#include <QCursor>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QToolBar>
#include <QVBoxLayout>

namespace selvora {
namespace slideView {

using document::Document;
using document::Scene;

namespace {
using LayoutSlot = void (SlideListTreeRoot::*)();
const LayoutSlot kLayoutSlots[Definitions::kLayoutCount] = {
    &SlideListTreeRoot::insertLayout1,  &SlideListTreeRoot::insertLayout2,
    &SlideListTreeRoot::insertLayout3,  &SlideListTreeRoot::insertLayout4,
    &SlideListTreeRoot::insertLayout5,  &SlideListTreeRoot::insertLayout6,
    &SlideListTreeRoot::insertLayout7,  &SlideListTreeRoot::insertLayout8,
    &SlideListTreeRoot::insertLayout9,  &SlideListTreeRoot::insertLayout10,
    &SlideListTreeRoot::insertLayout11, &SlideListTreeRoot::insertLayout12,
    &SlideListTreeRoot::insertLayout13, &SlideListTreeRoot::insertLayout14,
    &SlideListTreeRoot::insertLayout15, &SlideListTreeRoot::insertLayout16,
    &SlideListTreeRoot::insertLayout17, &SlideListTreeRoot::insertLayout18};
// The palette's rows: four layouts a row, two in the last.
constexpr int kPerRow = 4;
} // namespace

SlideListTreeRoot::SlideListTreeRoot(Document* document, Scene* scene)
    : document_(document), scene_(scene) {
    setId(scene ? scene->getId() : -1);
    setRow(scene ? scene->getOrder() : -1);
    createLayout();
    createLayoutActions();
    createLayoutMenu();
    setConnections();
    setSceneConnections();
}

void SlideListTreeRoot::createLayout() {
    auto* layout = new QHBoxLayout;
    picture_ = new QLabel(this);
    picture_->setPixmap(QPixmap(":/imagens/slide"));
    picture_->setScaledContents(true);
    picture_->setFixedSize(qRound(Definitions::getSlideListItemWidth()),
                           qRound(Definitions::getSlideListItemHeight()));
    // A double click on the picture opens the palette of layouts.
    picture_->installEventFilter(this);
    labelEdit_ = new QLineEdit(this);
    labelEdit_->setFixedWidth(125);
    labelEdit_->setMaxLength(15);
    labelEdit_->setText(scene_ ? scene_->getLabel().simplified() : QString());
    labelEdit_->setStyleSheet("border: none; background-color: transparent;");
    labelEdit_->setContextMenuPolicy(Qt::NoContextMenu);
    layout->addWidget(picture_);
    layout->addWidget(labelEdit_);
    layout->addStretch();
    layout->setSizeConstraint(QLayout::SetFixedSize);
    setLayout(layout);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void SlideListTreeRoot::createLayoutActions() {
    for (int i = 0; i < Definitions::kLayoutCount; ++i) {
        auto* action =
            new QAction(QIcon(QString(":/imagens/layout%1").arg(i + 1)), tr("Layout"), this);
        connect(action, &QAction::triggered, this, kLayoutSlots[i], Qt::UniqueConnection);
        layoutActions_.append(action);
    }
}

void SlideListTreeRoot::createLayoutMenu() {
    layoutMenu_ = new QMenu(this);
    auto* rows = new QVBoxLayout;
    const QSize icon(qRound(Definitions::getButtonWidth()), qRound(Definitions::getButtonHeight()));
    for (int first = 0; first < layoutActions_.size(); first += kPerRow) {
        auto* bar = new QToolBar(layoutMenu_);
        bar->setIconSize(icon);
        for (int i = first; i < qMin(first + kPerRow, layoutActions_.size()); ++i)
            bar->addAction(layoutActions_.at(i));
        rows->addWidget(bar);
    }
    layoutMenu_->setLayout(rows);
    layoutMenu_->setFixedWidth(rows->sizeHint().width());
    layoutMenu_->setFixedHeight(rows->sizeHint().height());
}

void SlideListTreeRoot::setConnections() {
    connect(labelEdit_, &QLineEdit::editingFinished, this, &SlideListTreeRoot::updateLabelScene,
            Qt::UniqueConnection);
}

void SlideListTreeRoot::setDisconnections() {
    disconnect(labelEdit_, &QLineEdit::editingFinished, this, &SlideListTreeRoot::updateLabelScene);
}

void SlideListTreeRoot::setSceneConnections() {
    if (!scene_)
        return;
    connect(scene_, QOverload<QString>::of(&Scene::changeLabel), this,
            &SlideListTreeRoot::updateLabelSlide, Qt::UniqueConnection);
    connect(scene_, &Scene::changeOrder, this, &SlideListTreeRoot::setRow, Qt::UniqueConnection);
}

void SlideListTreeRoot::setLabel(const QString& label) {
    setDisconnections();
    labelEdit_->setText(label.simplified());
    setConnections();
}

void SlideListTreeRoot::updateLabelSlide(QString label) {
    setLabel(label);
}

void SlideListTreeRoot::setPicture(const QPixmap& picture) {
    picture_->setPixmap(picture);
}

// Leaving the edit without typing changes nothing, even where the edit shows a label shortened
// to its fifteen characters; a label of blanks only is not taken.
void SlideListTreeRoot::updateLabelScene() {
    if (!scene_ || !labelEdit_->isModified())
        return;
    setDisconnections();
    const QString text = labelEdit_->text().simplified();
    bool clash = false;
    for (Scene* other : document_->getSceneAllInOrder()) {
        if (other != scene_ && other->getLabel().simplified() == text)
            clash = true;
    }
    if (clash) {
        QMessageBox box(QMessageBox::Information, tr("Renomear Cena"),
                        tr("Não foi possível editar a cena. Já existe uma cena com esse nome."),
                        QMessageBox::Ok);
        box.exec();
    } else if (!text.isEmpty() && scene_) {
        scene_->setLabel(text);
    }
    if (scene_)
        labelEdit_->setText(scene_->getLabel().simplified());
    setConnections();
}

void SlideListTreeRoot::openLayout() {
    showLayoutMenu();
}

void SlideListTreeRoot::showLayoutMenu() {
    const QPoint pointer = QCursor::pos();
    const double button = Definitions::getButtonHeight();
    const double screen = Definitions::getScreenHeight();
    int y = pointer.y();
    if (pointer.y() + 12 * button >= screen)
        y = qRound(pointer.y() - (screen - 11 * button));
    layoutMenu_->setGeometry(QRect(QPoint(pointer.x(), y), QSize(0, 0)));
    layoutMenu_->show();
}

void SlideListTreeRoot::insertLayout(int number) {
    layoutMenu_->close();
    if (!scene_ || number < 1 || number > Definitions::kLayoutCount)
        return;
    document::Template* layoutTemplate = document_->createTemplate(scene_, number);
    document_->insertStandardLayouts(layoutTemplate,
                                     static_cast<Definitions::kLayoutType>(number - 1));
    document_->insertTemplateScene(layoutTemplate, scene_);
    if (scene_ && scene_->getAllTemplates().size() > 1)
        showTemplateWizard();
}

wizards::TemplateWizard* SlideListTreeRoot::getTemplateWizard() const {
    return templateWizard_.data();
}

// Not modal, in a window of its own over the main window, which it goes with if it was never
// closed.
void SlideListTreeRoot::showTemplateWizard() {
    if (!scene_)
        return;
    QWidget* owner = window() != this ? window() : nullptr;
    auto* wizard = new wizards::TemplateWizard(document_, owner, scene_);
    wizard->setAttribute(Qt::WA_DeleteOnClose);
    templateWizard_ = wizard;
    wizard->show();
}

bool SlideListTreeRoot::eventFilter(QObject* watched, QEvent* event) {
    if (watched == picture_ && event->type() == QEvent::MouseButtonDblClick) {
        openLayout();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace slideView
} // namespace selvora
