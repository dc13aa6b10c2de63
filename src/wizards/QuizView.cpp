#include "wizards/QuizView.h"

#include "app/Definitions.h"
#include "wizards/QuizItem.h"

#include <QButtonGroup>
#include <QColorDialog>
#include <QComboBox>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace selvora {
namespace wizards {

namespace {
const QStringList kSizes = {"8",  "9",  "10", "11", "12", "14", "16", "18", "20",
                            "22", "24", "26", "28", "36", "42", "56", "64", "72"};
const char* const kQuestionSize = "20";
const char* const kOptionSize = "16";
} // namespace

QuizView::QuizView(document::Document* document, QWidget* parent)
    : QWidget(parent), document_(document) {
    question_ = new QTextEdit(this);
    question_->setAcceptRichText(false);
    question_->setTabChangesFocus(true);
    QFont font = question_->font();
    font.setPixelSize(16);
    question_->setFont(font);
    question_->setMaximumHeight(90);

    questionFontRow_ =
        fontRow(tr("Fonte da questão:"), &questionFamily_, &questionSize_, &questionColour_);
    optionFontRow_ =
        fontRow(tr("Fonte das alternativas:"), &optionFamily_, &optionSize_, &optionColour_);
    questionSize_->setCurrentText(kQuestionSize);
    optionSize_->setCurrentText(kOptionSize);

    rightGroup_ = new QButtonGroup(this);
    rightGroup_->setExclusive(true);
    answersLayout_ = new QVBoxLayout();
    answersLayout_->setSpacing(4);

    add_ = new QPushButton(tr("+"), this);
    add_->setMaximumWidth(30);
    ok_ = new QPushButton(tr("Ok"), this);
    ok_->setMaximumWidth(70);
    edit_ = new QPushButton(tr("Edit"), this);
    link_ = new QPushButton(tr("Link"), this);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(add_);
    buttons->addStretch();
    buttons->addWidget(edit_);
    buttons->addWidget(link_);
    buttons->addWidget(ok_);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(question_);
    layout->addWidget(questionFontRow_);
    layout->addWidget(optionFontRow_);
    layout->addLayout(answersLayout_);
    layout->addLayout(buttons);
    layout->addStretch();

    insertAnswer();
    disableLinkEdit();
    optionFontRow_->hide();
    setFixedWidth(Definitions::getViewWidth());
    setConnections();
}

QWidget* QuizView::fontRow(const QString& title, QFontComboBox** family, QComboBox** size,
                           QPushButton** colour) {
    auto* row = new QWidget(this);
    auto* label = new QLabel(title, row);
    label->setStyleSheet("border: none; font: 12px;");
    *family = new QFontComboBox(row);
    (*family)->setMaximumWidth(100);
    (*family)->setMaxVisibleItems(10);
    *size = new QComboBox(row);
    (*size)->setMaximumWidth(50);
    (*size)->addItems(kSizes);
    *colour = new QPushButton(row);
    (*colour)->setIcon(QIcon(":/imagens/fillColor"));
    (*colour)->setToolTip(tr("Cor da fonte"));
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(*family);
    layout->addWidget(*size);
    layout->addWidget(*colour);
    layout->addStretch();
    return row;
}

void QuizView::setConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(add_, &QPushButton::clicked, this, &QuizView::insertAnswer, unique);
    connect(edit_, &QPushButton::clicked, this, &QuizView::enableOptionsEdit, unique);
    connect(link_, &QPushButton::clicked, this, &QuizView::enableLinkEdit, unique);
    connect(questionFamily_, &QFontComboBox::currentFontChanged, this, &QuizView::setFamilyFont,
            unique);
    connect(questionSize_, &QComboBox::currentTextChanged, this, &QuizView::setQuestionSize,
            unique);
    connect(questionColour_, &QPushButton::clicked, this, &QuizView::chooseQuestionColor, unique);
    connect(optionFamily_, &QFontComboBox::currentFontChanged, this, &QuizView::setOptionFamily,
            unique);
    connect(optionSize_, &QComboBox::currentTextChanged, this, &QuizView::setOptionSize, unique);
    connect(optionColour_, &QPushButton::clicked, this, &QuizView::chooseOptionColor, unique);
}

QString QuizView::getQuestionText() const {
    return question_->toPlainText();
}

QStringList QuizView::getAnswerTexts() const {
    QStringList texts;
    for (const QuizItem* item : items_)
        texts << item->getText();
    return texts;
}

int QuizView::getRightAnswer() const {
    for (int i = 0; i < items_.size(); ++i) {
        if (items_.at(i)->isRight())
            return i + 1;
    }
    return 0;
}

void QuizView::setRightAnswer(int answer) {
    if (answer >= 1 && answer <= items_.size())
        items_.at(answer - 1)->setRight(true);
}

void QuizView::setAnswerCount(int count) {
    while (items_.size() < count)
        insertAnswer();
    while (items_.size() > count && !items_.isEmpty())
        removeAnswer(items_.last());
}

void QuizView::setWizardMode() {
    wizardMode_ = true;
    for (QPushButton* button : {add_, ok_, edit_, link_})
        button->hide();
    optionFontRow_->show();
    for (QuizItem* item : qAsConst(items_)) {
        item->enableDeleteOption(false);
        item->enableLinkOption(false);
        item->enableRightOption(true);
    }
    question_->setPlaceholderText(tr("Escreva aqui a questão"));
}

QString QuizView::getQuestionFamily() const {
    return questionFamily_->currentFont().family();
}

int QuizView::getQuestionSize() const {
    return questionSize_->currentText().toInt();
}

QString QuizView::getOptionFamily() const {
    return optionFamily_->currentFont().family();
}

int QuizView::getOptionSize() const {
    return optionSize_->currentText().toInt();
}

void QuizView::insertAnswer() {
    auto* item = new QuizItem(this);
    items_.append(item);
    answersLayout_->addWidget(item);
    rightGroup_->addButton(item->getRightButton());
    item->setFontFamily(getOptionFamily());
    item->setFontSize(optionSize_->currentText());
    item->setColorFont(optionColor_.name());
    if (wizardMode_) {
        item->enableDeleteOption(false);
        item->enableLinkOption(false);
        item->enableRightOption(true);
        item->getTextEdit()->setPlaceholderText(tr("Alternativa %1").arg(items_.size()));
    } else {
        const bool linking = !link_->isEnabled();
        item->enableDeleteOption(!linking);
        item->enableLinkOption(linking);
    }
    connect(item, &QuizItem::deleteRequested, this, &QuizView::removeAnswer, Qt::UniqueConnection);
}

void QuizView::removeAnswer(QuizItem* item) {
    if (!items_.removeOne(item))
        return;
    const bool wasRight = item->isRight();
    rightGroup_->removeButton(item->getRightButton());
    answersLayout_->removeWidget(item);
    item->deleteLater();
    // A question always keeps a right answer once one was marked.
    if (wasRight && !items_.isEmpty())
        items_.first()->setRight(true);
}

void QuizView::enableOptionsEdit() {
    optionFontRow_->show();
    link_->setEnabled(true);
    edit_->setEnabled(false);
    disableLinkEdit();
}

void QuizView::enableLinkEdit() {
    link_->setEnabled(false);
    edit_->setEnabled(true);
    for (QuizItem* item : qAsConst(items_)) {
        item->enableLinkOption(true);
        item->enableDeleteOption(false);
    }
    optionFontRow_->hide();
}

void QuizView::disableLinkEdit() {
    for (QuizItem* item : qAsConst(items_)) {
        item->enableDeleteOption(!wizardMode_);
        item->enableLinkOption(false);
    }
}

void QuizView::setFamilyFont(QFont font) {
    QFont current = question_->font();
    current.setFamily(font.family());
    question_->setFont(current);
}

// The question edit keeps its size in pixels: the chosen size is the canvas's.
void QuizView::setQuestionSize() {}

void QuizView::setOptionFamily(QFont font) {
    for (QuizItem* item : qAsConst(items_))
        item->setFontFamily(font.family());
}

void QuizView::setOptionSize() {
    for (QuizItem* item : qAsConst(items_))
        item->setFontSize(optionSize_->currentText());
}

void QuizView::chooseQuestionColor() {
    const QColor colour = QColorDialog::getColor(questionColor_, this, tr("Cor da fonte"));
    if (!colour.isValid())
        return;
    questionColor_ = colour;
    question_->setTextColor(colour);
    QPalette palette = question_->palette();
    palette.setColor(QPalette::Text, colour);
    question_->setPalette(palette);
}

void QuizView::chooseOptionColor() {
    const QColor colour = QColorDialog::getColor(optionColor_, this, tr("Cor da fonte"));
    if (!colour.isValid())
        return;
    optionColor_ = colour;
    for (QuizItem* item : qAsConst(items_))
        item->setColorFont(colour.name());
}

} // namespace wizards
} // namespace selvora
