#ifndef SELVORA_WIZARDS_QUIZVIEW_H
#define SELVORA_WIZARDS_QUIZVIEW_H

#include <QColor>
#include <QFont>
#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

class QButtonGroup;
class QComboBox;
class QFontComboBox;
class QPushButton;
class QTextEdit;
class QVBoxLayout;

namespace selvora {
namespace document {
class Document;
}

namespace wizards {

class QuizItem;

// The editing panel of one question: its text, the font of the question and of the answers,
// and the list of answers. In the quiz wizard the number of answers is fixed by the wizard and
// each answer can be marked as the right one.
class QuizView : public QWidget {
    Q_OBJECT
public:
    QuizView(document::Document* document, QWidget* parent);

    QTextEdit* getQuestionEdit() const { return question_; }
    QString getQuestionText() const;
    const QList<QuizItem*>& getItems() const { return items_; }
    QStringList getAnswerTexts() const;
    // 1-based number of the answer marked right, 0 when none is.
    int getRightAnswer() const;
    void setRightAnswer(int answer);
    // Grows or shrinks the list to that many answers, keeping what was typed in the others.
    void setAnswerCount(int count);
    // The wizard's form: answers are marked right, not linked, added or deleted here.
    void setWizardMode();

    QString getQuestionFamily() const;
    int getQuestionSize() const;
    QColor getQuestionColor() const { return questionColor_; }
    QString getOptionFamily() const;
    int getOptionSize() const;
    QColor getOptionColor() const { return optionColor_; }

public slots:
    void insertAnswer();
    void enableOptionsEdit();
    void enableLinkEdit();
    void disableLinkEdit();
    void setFamilyFont(QFont font);
    void setQuestionSize();

private slots:
    void removeAnswer(selvora::wizards::QuizItem* item);
    void chooseQuestionColor();
    void chooseOptionColor();
    void setOptionFamily(QFont font);
    void setOptionSize();

private:
    QWidget* fontRow(const QString& title, QFontComboBox** family, QComboBox** size,
                     QPushButton** colour);
    void setConnections();

    document::Document* document_;
    QTextEdit* question_;
    QWidget* questionFontRow_;
    QFontComboBox* questionFamily_;
    QComboBox* questionSize_;
    QPushButton* questionColour_;
    QWidget* optionFontRow_;
    QFontComboBox* optionFamily_;
    QComboBox* optionSize_;
    QPushButton* optionColour_;
    QVBoxLayout* answersLayout_;
    QList<QuizItem*> items_;
    QButtonGroup* rightGroup_;
    QPushButton* add_;
    QPushButton* ok_;
    QPushButton* edit_;
    QPushButton* link_;
    QColor questionColor_ = Qt::black;
    QColor optionColor_ = Qt::black;
    bool wizardMode_ = false;
};

} // namespace wizards
} // namespace selvora

#endif
