#ifndef SELVORA_WIZARDS_QUIZITEM_H
#define SELVORA_WIZARDS_QUIZITEM_H

#include <QFont>
#include <QString>
#include <QWidget>

class QPushButton;
class QRadioButton;
class QTextEdit;

namespace selvora {
namespace wizards {

// One answer of a question: its text, a button that deletes it, a button that links it, and the
// mark that makes it the right one.
class QuizItem : public QWidget {
    Q_OBJECT
public:
    explicit QuizItem(QWidget* parent = nullptr);

    QString getText() const;
    void setText(const QString& text);
    QFont getFont() const { return font_; }
    QTextEdit* getTextEdit() const { return answer_; }
    QPushButton* getDeleteButton() const { return remove_; }
    QPushButton* getLinkButton() const { return link_; }
    QRadioButton* getRightButton() const { return right_; }
    bool isRight() const;
    void setRight(bool right);

public slots:
    void enableDeleteOption(bool enable);
    void enableLinkOption(bool enable);
    void enableRightOption(bool enable);
    void setFontFamily(QString family);
    // A kTextType value as decimal text.
    void setFontType(QString type);
    void setFontSize(QString size);
    void setColorFont(QString color);

signals:
    void deleteRequested(selvora::wizards::QuizItem* item);

private:
    void applyFont();

    QTextEdit* answer_;
    QPushButton* remove_;
    QPushButton* link_;
    QRadioButton* right_;
    QFont font_;
};

} // namespace wizards
} // namespace selvora

#endif
