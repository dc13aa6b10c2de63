#ifndef SELVORA_WIZARDS_QUIZ_H
#define SELVORA_WIZARDS_QUIZ_H

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWizard>

class QComboBox;
class QGraphicsProxyWidget;
class QGraphicsScene;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace selvora {
namespace document {
class Document;
class Media;
class Scene;
} // namespace document
namespace spatialview {
class ImageItem;
}

namespace wizards {

class QuizView;

// Turns a few answers into a chain of scenes: one scene per question, with its time limit, its
// text and one answer button per option; one shared feedback scene, whose timeline is cut into
// five-second slots, one per question and outcome; and a final scene.
//
// The feedback scene of N questions lasts 10 N seconds. Second 5 (i - 1) starts the slot of a
// right answer to question i, which shows the right picture and leaves at 5 i for question
// i + 1 (the final scene after question N); second 5 (N + i - 1) starts the slot of a wrong
// answer or a time-out, which shows the wrong picture and leaves at 5 (N + i) for question i
// again. Answers and time-outs are links into those seconds.
class Quiz : public QWizard {
    Q_OBJECT
public:
    Quiz(document::Document* document, document::Scene* scene, QWidget* parent);
    ~Quiz() override;

    // The pages, in their order.
    enum Page { configurationPage = 0, questionsPage, rightPage, wrongPage };

    QComboBox* getQuestionsBox() const { return questionsBox_; }
    QComboBox* getOptionsBox() const { return optionsBox_; }
    QLineEdit* getTimeEdit() const { return timeEdit_; }
    QPushButton* getRightButton() const { return rightButton_; }
    QPushButton* getWrongButton() const { return wrongButton_; }
    QGraphicsScene* getRightScene() const { return rightScene_; }
    QGraphicsScene* getWrongScene() const { return wrongScene_; }
    spatialview::ImageItem* getRightItem() const { return rightItem_; }
    spatialview::ImageItem* getWrongItem() const { return wrongItem_; }
    // One editing panel per question, as many as questions are chosen.
    QList<QuizView*> getQuestionViews();
    document::Scene* getFirstScene() const { return firstScene_; }
    document::Scene* getFinalScene() const { return finalScene_; }
    QString getRightImage() const { return rightImage_; }
    QString getWrongImage() const { return wrongImage_; }

    static int timeSeconds(const QStringList& parts);

    // A question as the teacher writes it on the questions page; `right` counts from 1.
    struct Question {
        QString text;
        QStringList answers;
        int right = 1;
    };
    // Fills the pages as a teacher would, for a quiz made by a program: every question with as
    // many answers as the first, and the time to answer ("hh:mm:ss"). createQuiz() then makes it,
    // as the finish button does.
    void fill(const QList<Question>& questions, const QString& time);

public slots:
    void setQuestionsValue(QString value);
    void setOptionsValue(QString value);
    void updateFeedbackRight();
    void updateFeedbackWrong();
    void openRightImage();
    void openWrongImage();
    void createQuiz();

private:
    void createConfigurationPage();
    void createQuestionsPage();
    void createFeedbackRightPage();
    void createFeedbackWrongPage();
    QWizardPage* createFeedbackPage(const QString& text, QGraphicsScene** scene,
                                    QPushButton** button);
    void createFeedbackScene();
    void createQuestion();
    void createButton(int option, int question, bool right);
    void createOption(int option, bool right);
    // The feedback picture of one outcome, from the chosen file and its preview, or a coloured
    // caption when no file was chosen.
    document::Media* createFeedbackPicture(bool right);
    QString openImage();
    // Puts the chosen picture in its preview, at half the size it will have on the canvas.
    void showPreview(bool right);
    // Follows the number of questions and options on the questions page.
    void updateQuestionViews();
    // Writes geometry and look into the media and into its state at second 0.
    void shapeMedia(document::Scene* scene, document::Media* media,
                    const QHash<QString, QString>& properties);
    void setConnections();

    document::Document* document_;
    QPointer<document::Scene> firstScene_;
    QPointer<document::Scene> finalScene_;
    QPointer<document::Scene> feedbackScene_;
    QGraphicsScene* rightScene_ = nullptr;
    QGraphicsScene* wrongScene_ = nullptr;
    QComboBox* questionsBox_ = nullptr;
    QComboBox* optionsBox_ = nullptr;
    QLineEdit* timeEdit_ = nullptr;
    QPushButton* rightButton_ = nullptr;
    QPushButton* wrongButton_ = nullptr;
    QGraphicsProxyWidget* rightProxy_ = nullptr;
    QGraphicsProxyWidget* wrongProxy_ = nullptr;
    spatialview::ImageItem* rightItem_ = nullptr;
    spatialview::ImageItem* wrongItem_ = nullptr;
    QTabWidget* questionTabs_ = nullptr;
    QList<QuizView*> questionViews_;
    QString rightImage_;
    QString wrongImage_;
    int questions_ = 1;
    int options_ = 2;

    // The scenes being made, and where the making stands.
    QList<document::Scene*> questionScenes_;
    document::Scene* questionScene_ = nullptr;
    document::Media* button_ = nullptr;
    int question_ = 0;
    bool created_ = false;
};

} // namespace wizards
} // namespace selvora

#endif
