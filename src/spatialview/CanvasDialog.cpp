#include "spatialview/CanvasDialog.h"

#include "app/TimeText.h"
#include "document/Document.h"
#include "document/Scene.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace selvora {
namespace spatialview {

CanvasDialog::CanvasDialog(QWidget* parent, const QString& title, const QSize& size)
    : QDialog(parent, Qt::WindowStaysOnTopHint) {
    setWindowTitle(title);
    setFixedSize(size);
}

void CanvasDialog::addButtons(QBoxLayout* layout) {
    auto* row = new QHBoxLayout();
    row->addStretch();
    auto* cancel = new QPushButton(tr("&Cancelar"), this);
    cancel->setAutoDefault(false);
    save_ = new QPushButton(tr("&Salvar"), this);
    save_->setAutoDefault(true);
    save_->setDefault(true);
    row->addWidget(cancel);
    row->addWidget(save_);
    layout->addLayout(row);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
}

QLineEdit* CanvasDialog::timeEdit(int seconds) {
    auto* edit = new QLineEdit(this);
    edit->setInputMask(QStringLiteral("00:00:00"));
    edit->setText(timeText(seconds));
    return edit;
}

int CanvasDialog::seconds(const QLineEdit* edit) {
    return TimeText::fromText(edit->text());
}

QString CanvasDialog::timeText(int seconds) {
    return TimeText::timeString(qBound(0, seconds, TimeText::kMaxSeconds));
}

QComboBox* CanvasDialog::sceneChoices(const document::Document* document) {
    auto* box = new QComboBox(this);
    box->addItem(QString(), -1);
    for (const document::Scene* scene : document->getSceneAllInOrder())
        box->addItem(scene->getLabel(), scene->getId());
    return box;
}

void CanvasDialog::tell(QMessageBox::Icon icon, const QString& title, const QString& text) {
    QMessageBox box(icon, title, text, QMessageBox::Ok, this, Qt::WindowStaysOnTopHint);
    box.exec();
}

} // namespace spatialview
} // namespace selvora
