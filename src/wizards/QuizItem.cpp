#include "wizards/QuizItem.h"

#include "app/Definitions.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>

namespace selvora {
namespace wizards {

namespace {
const int kAnswerHeight = 40;
}

QuizItem::QuizItem(QWidget* parent) : QWidget(parent) {
    answer_ = new QTextEdit(this);
    answer_->setAcceptRichText(false);
    answer_->setFixedHeight(kAnswerHeight);
    answer_->setTabChangesFocus(true);
    remove_ = new QPushButton(tr("x"), this);
    remove_->setMaximumWidth(30);
    link_ = new QPushButton(tr("elo"), this);
    link_->setMaximumWidth(40);
    right_ = new QRadioButton(tr("Certa"), this);
    right_->setToolTip(tr("A alternativa certa desta questão"));
    right_->hide();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(right_);
    row->addWidget(answer_);
    row->addWidget(remove_);
    row->addWidget(link_);
    font_ = answer_->font();
    connect(remove_, &QPushButton::clicked, this, [this] { emit deleteRequested(this); });
}

QString QuizItem::getText() const {
    return answer_->toPlainText();
}

void QuizItem::setText(const QString& text) {
    answer_->setPlainText(text);
}

bool QuizItem::isRight() const {
    return right_->isChecked();
}

void QuizItem::setRight(bool right) {
    right_->setChecked(right);
}

void QuizItem::enableDeleteOption(bool enable) {
    remove_->setVisible(enable);
}

void QuizItem::enableLinkOption(bool enable) {
    link_->setVisible(enable);
}

void QuizItem::enableRightOption(bool enable) {
    right_->setVisible(enable);
}

void QuizItem::setFontFamily(QString family) {
    font_.setFamily(family);
    applyFont();
}

void QuizItem::setFontType(QString type) {
    using Type = Definitions::kTextType;
    const Type value = static_cast<Type>(type.toInt());
    font_.setBold(value == Type::bold || value == Type::bold_italic ||
                  value == Type::bold_underline || value == Type::bold_italic_underline);
    font_.setItalic(value == Type::italic || value == Type::bold_italic ||
                    value == Type::italic_underline || value == Type::bold_italic_underline);
    font_.setUnderline(value == Type::underline || value == Type::bold_underline ||
                       value == Type::italic_underline || value == Type::bold_italic_underline);
    applyFont();
}

void QuizItem::setFontSize(QString size) {
    const int points = size.toInt();
    if (points > 0)
        font_.setPointSize(points);
    applyFont();
}

void QuizItem::setColorFont(QString color) {
    const QColor colour(color);
    if (colour.isValid())
        answer_->setTextColor(colour);
    QPalette palette = answer_->palette();
    if (colour.isValid())
        palette.setColor(QPalette::Text, colour);
    answer_->setPalette(palette);
}

// The answer is one line or two: the edit grows with its font.
void QuizItem::applyFont() {
    answer_->setFont(font_);
    answer_->setFixedHeight(qMax(kAnswerHeight, QFontMetrics(font_).height() + 16));
}

} // namespace wizards
} // namespace selvora
