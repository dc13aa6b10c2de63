#include "spatialview/TextEdit.h"

#include "app/Definitions.h"
#include "spatialview/WordingPainter.h"

#include <QFocusEvent>
#include <QFontMetrics>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPalette>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QVBoxLayout>

namespace selvora {
namespace spatialview {

namespace {
// Space between the editor's edge and its box: with the document's own margin the typing
// starts where the item draws its wording.
const int kBoxMargin = 2;
} // namespace

TextEdit::TextEdit(QString text, QString colorFont, QString fontFamily, QString fontSize,
                   QWidget* parent)
    : QDialog(parent, parent ? Qt::Widget : Qt::Window | Qt::FramelessWindowHint),
      fontSize_(WordingPainter::pixelSizeOf(WordingPainter::fontSizeOf(fontSize))) {
    // A dialog is a window by birth; over a canvas it is a plain child.
    if (parent)
        setWindowFlags(Qt::Widget);
    textBox_ = new QTextEdit(this);
    textBox_->setPlainText(text);
    textBox_->setFrameStyle(0);
    textBox_->viewport()->setAutoFillBackground(false);
    textBox_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    textBox_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    textBox_->setLineWrapMode(QTextEdit::WidgetWidth);
    textBox_->setContextMenuPolicy(Qt::NoContextMenu);
    document_ = textBox_->document();

    font_.setFamily(WordingPainter::familyOf(fontFamily));
    font_.setPixelSize(fontSize_);
    textBox_->setFont(font_);
    setColorFont(colorFont);

    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TranslucentBackground);
    setAutoFillBackground(false);
    hide();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kBoxMargin, kBoxMargin, kBoxMargin, kBoxMargin);
    layout->addWidget(textBox_);
    textBox_->installEventFilter(this);
    setConnections();
}

bool TextEdit::eventFilter(QObject* watched, QEvent* event) {
    // A click elsewhere, on the canvas or on a panel, ends the edit; a menu or another window
    // taking the keyboard for a moment does not.
    if (watched == textBox_ && event->type() == QEvent::FocusOut && opened_) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            closeWidget();
    }
    return QDialog::eventFilter(watched, event);
}

void TextEdit::setConnections() {
    connect(document_, &QTextDocument::contentsChanged, this, &TextEdit::updateGeometry,
            Qt::UniqueConnection);
}

QString TextEdit::getText() const {
    return textBox_->toPlainText();
}

bool TextEdit::getTextBoxFocus() const {
    return textBox_->hasFocus();
}

void TextEdit::setColorFont(const QString& name) {
    QPalette palette = textBox_->palette();
    palette.setBrush(QPalette::All, QPalette::Text,
                     WordingPainter::colorOf(name, Qt::black, Qt::black));
    textBox_->setPalette(palette);
}

void TextEdit::setFontFamily(const QString& fontFamily) {
    font_.setFamily(WordingPainter::familyOf(fontFamily));
    textBox_->setFont(font_);
}

void TextEdit::setFontType(const QString& value) {
    bool bold = false, italic = false, underline = false;
    if (!WordingPainter::fontTypeOf(value, &bold, &italic, &underline))
        return;
    font_.setWeight(bold ? QFont::Bold : QFont::Normal);
    font_.setItalic(italic);
    font_.setUnderline(underline);
    textBox_->setFont(font_);
}

void TextEdit::setFontSize(const QString& text) {
    fontSize_ = WordingPainter::pixelSizeOf(WordingPainter::fontSizeOf(text));
    font_.setPixelSize(fontSize_);
    textBox_->setFont(font_);
}

void TextEdit::setText(const QString& text) {
    // Plain: wording that looks like markup must stay as typed.
    textBox_->setPlainText(text);
}

QPoint TextEdit::toLocal(const QPoint& global) const {
    return parentWidget() && !isWindow() ? parentWidget()->mapFromGlobal(global) : global;
}

void TextEdit::setGlobalGeometry(const QRect& rect) {
    setGeometry(QRect(toLocal(rect.topLeft()), rect.size()));
}

QPoint TextEdit::globalPos(const QGraphicsItem* item, const QPointF& itemPos, QWidget* widget) {
    const QPointF scenePoint =
        item->parentItem() ? item->parentItem()->mapToScene(itemPos) : itemPos;
    if (item->scene() && !item->scene()->views().isEmpty()) {
        const QGraphicsView* view = item->scene()->views().first();
        return view->viewport()->mapToGlobal(view->mapFromScene(scenePoint));
    }
    if (widget)
        return widget->mapToGlobal(scenePoint.toPoint());
    return scenePoint.toPoint();
}

void TextEdit::showEditWidget(QRect rect, QPoint itemPos, Qt::Alignment alignment) {
    editRect_ = rect;
    itemPos_ = itemPos;
    opened_ = true;
    shown_ = false;

    textBox_->moveCursor(QTextCursor::End);
    textBox_->setAlignment(alignment);
    textBox_->setFont(font_);
    setBaseSize(rect.size());
    setMinimumHeight(std::max(rect.height(), 1));
    setMinimumWidth(std::max(rect.width() + 25, 1));
    // No width of its own: the minimum width rules.
    setGlobalGeometry(QRect(rect.topLeft(), QPoint(rect.left(), rect.bottom() + 25)));
    show();
    raise();
    textBox_->setFocus(Qt::OtherFocusReason);
    shown_ = true;
}

void TextEdit::closeWidget() {
    if (!opened_)
        return;
    opened_ = false;
    // Closed first: a listener of the text may ask a question in a dialog of its own.
    close();
    emit textChanged(textBox_->toPlainText());
}

void TextEdit::reject() {
    if (opened_)
        closeWidget();
    else
        QDialog::reject();
}

void TextEdit::updateGeometry() {
    if (font_.pixelSize() == -1)
        font_.setPixelSize(fontSize_);
    // Only an open editor grows its item; a closed one is told its text by the properties.
    if (!opened_ || !shown_)
        return;
    const qreal docH = document_->size().height();
    const int lineH = QFontMetrics(textBox_->font()).height();
    const int H = Definitions::getViewHeight();
    if (docH + itemPos_.y() + lineH <= H) {
        const int needed = int(docH + lineH);
        if (needed >= Definitions::getMediaHeight(Definitions::kMediaType::text) &&
            itemPos_.y() + needed <= H) {
            setMinimumHeight(needed + 6);
            emit geometryChanged(needed);
        }
    } else {
        // The wording has reached the bottom of the canvas: the item stops there.
        setMinimumHeight(std::max(H - itemPos_.y() + 6, 1));
        emit geometryChanged(std::max(H - itemPos_.y(), 1));
    }
    update();
}

int TextEdit::getTextDocument() {
    textBox_->setFont(font_);
    return int(QFontMetrics(textBox_->font()).height() + document_->size().height());
}

} // namespace spatialview
} // namespace selvora
