#include "wizards/Quiz.h"

#include "app/Definitions.h"
#include "app/TimeText.h"
#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "spatialview/ImageItem.h"
#include "wizards/QuizItem.h"
#include "wizards/QuizView.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFont>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollArea>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>

namespace selvora {
namespace wizards {

using document::Media;
using document::Scene;
using MediaType = Definitions::kMediaType;
using SyncType = Definitions::kSyncType;
using Properties = QHash<QString, QString>;

namespace {

// Seconds a feedback slot lasts.
const int kSlot = 5;
const int kButtonSize = 100;
const int kIconSize = 70;
// After a picture is chosen the button steps aside, to its corner, to change it.
const int kSmallButtonSize = 44;

// Where things stand on a question's canvas, in percent.
const double kQuestionTop = 5;
const double kQuestionHeight = 25;
const double kAnswersTop = 35;
const double kAnswersSpace = 60;
const double kAnswerGap = 3;
// A shape keeps its caption 20 pixels inside its edges: a button lower than this clips it.
const double kAnswerMaxHeight = 18;
// Up to three answers stand in one column; four and five in two.
const int kOneColumn = 3;

QString number(double value) {
    return QString::number(value, 'g', 6);
}

QLabel* rowLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setStyleSheet("border: none; font: 12px;");
    return label;
}

QString fontOf(const QString& family) {
    return QFont(family).toString();
}

} // namespace

Quiz::Quiz(document::Document* document, Scene* scene, QWidget* parent)
    : QWizard(parent), document_(document), firstScene_(scene) {
    if (scene)
        document_->setCurrentScene(scene->getId(), true);
    createConfigurationPage();
    createQuestionsPage();
    createFeedbackRightPage();
    createFeedbackWrongPage();
    setButtonText(QWizard::CancelButton, tr("Cancelar"));
    setButtonText(QWizard::NextButton, tr("Próximo"));
    setButtonText(QWizard::BackButton, tr("Voltar"));
    setButtonText(QWizard::FinishButton, tr("Terminar"));
    setConnections();
    setWindowTitle(tr("Quiz"));
    // Room for a question's panel, as wide as the canvas, with five answers.
    setMinimumSize(Definitions::getViewWidth() + 120, 640);
    show();
}

// The previews go with their pages, after this object: their last selection change must not
// reach it.
Quiz::~Quiz() {
    disconnect(rightScene_, nullptr, this, nullptr);
    disconnect(wrongScene_, nullptr, this, nullptr);
}

void Quiz::setConnections() {
    const auto unique = Qt::UniqueConnection;
    connect(questionsBox_, &QComboBox::currentTextChanged, this, &Quiz::setQuestionsValue, unique);
    connect(optionsBox_, &QComboBox::currentTextChanged, this, &Quiz::setOptionsValue, unique);
    connect(rightButton_, &QPushButton::pressed, this, &Quiz::openRightImage, unique);
    connect(wrongButton_, &QPushButton::pressed, this, &Quiz::openWrongImage, unique);
    connect(rightScene_, &QGraphicsScene::selectionChanged, this, &Quiz::updateFeedbackRight,
            unique);
    connect(wrongScene_, &QGraphicsScene::selectionChanged, this, &Quiz::updateFeedbackWrong,
            unique);
    connect(button(QWizard::FinishButton), &QAbstractButton::pressed, this, &Quiz::createQuiz,
            unique);
    connect(this, &QWizard::currentIdChanged, this, [this](int id) {
        if (id == questionsPage)
            updateQuestionViews();
    });
}

// ---------------------------------------------------------------- pages

void Quiz::createConfigurationPage() {
    auto* page = new QWizardPage(this);
    page->setTitle(tr("Configurações"));
    questionsBox_ = new QComboBox(page);
    questionsBox_->addItems({"1", "2", "3", "4", "5"});
    optionsBox_ = new QComboBox(page);
    optionsBox_->addItems({"2", "3", "4", "5"});
    timeEdit_ = new QLineEdit(page);
    timeEdit_->setFixedWidth(70);
    timeEdit_->setInputMask("00:00:00");
    timeEdit_->setText("00:00:00");
    timeEdit_->setToolTip(tr("00:00:00: a questão espera a resposta sem limite de tempo"));
    auto* layout = new QVBoxLayout(page);
    const QList<QPair<QString, QWidget*>> rows = {
        {tr("Número de questões:"), questionsBox_},
        {tr("Número de alternativas por questão:"), optionsBox_},
        {tr("Tempo para responder cada questão:"), timeEdit_}};
    for (const auto& row : rows) {
        auto* line = new QHBoxLayout();
        line->addWidget(rowLabel(row.first, page));
        line->addWidget(row.second);
        line->addStretch();
        layout->addLayout(line);
    }
    layout->addStretch();
    addPage(page);
}

void Quiz::createQuestionsPage() {
    auto* page = new QWizardPage(this);
    page->setTitle(tr("Questões"));
    page->setSubTitle(tr("Escreva cada questão e suas alternativas, e marque a alternativa "
                         "certa."));
    questionTabs_ = new QTabWidget(page);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(questionTabs_);
    addPage(page);
    updateQuestionViews();
}

void Quiz::createFeedbackRightPage() {
    addPage(createFeedbackPage(tr("Qual a imagem o aluno verá se acertar?"), &rightScene_,
                               &rightButton_));
    rightProxy_ = rightButton_->graphicsProxyWidget();
}

void Quiz::createFeedbackWrongPage() {
    addPage(createFeedbackPage(tr("Qual a imagem o aluno verá se errar?"), &wrongScene_,
                               &wrongButton_));
    wrongProxy_ = wrongButton_->graphicsProxyWidget();
}

QWizardPage* Quiz::createFeedbackPage(const QString& text, QGraphicsScene** scene,
                                      QPushButton** button) {
    auto* page = new QWizardPage(this);
    page->setTitle(tr("Configurações"));
    const int width = Definitions::getViewWidth() / 2;
    const int height = Definitions::getViewHeight() / 2;
    *scene = new QGraphicsScene(0, 0, width, height, page);
    auto* view = new QGraphicsView(*scene, page);
    view->setFixedSize(width, height);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setFrameShape(QFrame::NoFrame);
    *button = new QPushButton();
    (*button)->setIcon(QIcon(":/imagens/icones-Selvora_05"));
    (*button)->setIconSize(QSize(kIconSize, kIconSize));
    (*button)->setGeometry(width / 2 - kButtonSize / 2, height / 2 - kButtonSize / 2, kButtonSize,
                           kButtonSize);
    (*button)->setToolTip(tr("Escolher a imagem"));
    QGraphicsProxyWidget* proxy = (*scene)->addWidget(*button);
    proxy->setZValue(2);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(rowLabel(text, page));
    layout->addWidget(view);
    layout->addStretch();
    return page;
}

QList<QuizView*> Quiz::getQuestionViews() {
    updateQuestionViews();
    return questionViews_;
}

void Quiz::updateQuestionViews() {
    if (!questionTabs_)
        return;
    while (questionViews_.size() < questions_) {
        auto* view = new QuizView(document_, nullptr);
        view->setWizardMode();
        view->setAnswerCount(options_);
        // A right answer the teacher does not change is drawn at random.
        view->setRightAnswer(QRandomGenerator::global()->bounded(options_) + 1);
        auto* scroll = new QScrollArea();
        scroll->setWidget(view);
        scroll->setWidgetResizable(true);
        scroll->setFrameShape(QFrame::NoFrame);
        questionViews_.append(view);
        questionTabs_->addTab(scroll, tr("Pergunta %1").arg(questionViews_.size()));
    }
    while (questionViews_.size() > questions_) {
        questionViews_.removeLast();
        QWidget* tab = questionTabs_->widget(questionTabs_->count() - 1);
        questionTabs_->removeTab(questionTabs_->count() - 1);
        tab->deleteLater();
    }
    for (QuizView* view : qAsConst(questionViews_)) {
        view->setAnswerCount(options_);
        if (view->getRightAnswer() == 0)
            view->setRightAnswer(1);
    }
}

// ---------------------------------------------------------------- answers

void Quiz::setQuestionsValue(QString value) {
    questions_ = value.toInt();
}

void Quiz::setOptionsValue(QString value) {
    options_ = value.toInt();
}

void Quiz::updateFeedbackRight() {
    if (!rightItem_)
        return;
    rightItem_->setFocus(Qt::OtherFocusReason);
    rightItem_->showCorners();
}

void Quiz::updateFeedbackWrong() {
    if (!wrongItem_)
        return;
    wrongItem_->setFocus(Qt::OtherFocusReason);
    wrongItem_->showCorners();
}

void Quiz::openRightImage() {
    const QString path = openImage();
    if (path.isEmpty())
        return;
    rightImage_ = path;
    showPreview(true);
}

void Quiz::openWrongImage() {
    const QString path = openImage();
    if (path.isEmpty())
        return;
    wrongImage_ = path;
    showPreview(false);
}

QString Quiz::openImage() {
    QString filter = tr("Imagem (");
    for (const QString& extension : Definitions::getImageExtensions())
        filter += " *." + extension;
    filter += ")";
    QString folder = document_->getLastDirectory();
    if (folder.isEmpty())
        folder = QDir::homePath();
    return QFileDialog::getOpenFileName(this, tr("Escolha um arquivo"), folder, filter, nullptr,
                                        QFileDialog::DontUseNativeDialog);
}

void Quiz::showPreview(bool right) {
    QGraphicsScene* scene = right ? rightScene_ : wrongScene_;
    spatialview::ImageItem*& item = right ? rightItem_ : wrongItem_;
    QGraphicsProxyWidget* proxy = right ? rightProxy_ : wrongProxy_;
    QPushButton* button = right ? rightButton_ : wrongButton_;
    // A picture chosen again replaces the old one, which must be gone from the pointer before
    // its removal changes the selection.
    spatialview::ImageItem* old = item;
    item = nullptr;
    delete old;
    item = new spatialview::ImageItem(-1, right ? rightImage_ : wrongImage_, 1, 0, "0", nullptr,
                                      nullptr);
    scene->addItem(item);
    // Half its own size, at most the whole preview: the canvas gets twice the preview.
    const QSizeF preview = scene->sceneRect().size();
    QSizeF size = item->hasPicture() ? QSizeF(item->naturalSize()) / 2 : preview / 2;
    if (size.width() > preview.width() || size.height() > preview.height())
        size = size.scaled(preview, Qt::KeepAspectRatio);
    item->init(QRectF(QPointF(), size));
    item->setPos((preview.width() - size.width()) / 2, (preview.height() - size.height()) / 2);
    item->setZValue(1);
    button->setIconSize(QSize(kSmallButtonSize - 10, kSmallButtonSize - 10));
    button->setFixedSize(kSmallButtonSize, kSmallButtonSize);
    proxy->setPos(preview.width() - kSmallButtonSize - 4, preview.height() - kSmallButtonSize - 4);
    item->setSelected(true);
}

int Quiz::timeSeconds(const QStringList& parts) {
    return TimeText::timeSeconds(parts);
}

void Quiz::fill(const QList<Question>& questions, const QString& time) {
    if (questions.isEmpty())
        return;
    questionsBox_->setCurrentText(QString::number(questions.size()));
    optionsBox_->setCurrentText(QString::number(questions.first().answers.size()));
    timeEdit_->setText(time);
    updateQuestionViews();
    for (int i = 0; i < questions.size() && i < questionViews_.size(); ++i) {
        QuizView* view = questionViews_.at(i);
        view->getQuestionEdit()->setPlainText(questions.at(i).text);
        const QList<QuizItem*>& items = view->getItems();
        for (int j = 0; j < items.size(); ++j)
            items.at(j)->setText(questions.at(i).answers.value(j));
        view->setRightAnswer(questions.at(i).right);
    }
}

// ---------------------------------------------------------------- making the quiz

void Quiz::createQuiz() {
    // The finish button is pressed once; a second press must not make a second quiz.
    if (created_ || !firstScene_)
        return;
    created_ = true;
    updateQuestionViews();
    const int time = timeSeconds(timeEdit_->text().split(':'));
    Scene* first = firstScene_;
    // The answers start with the question: at second 0.
    if (first->getCurrentTime() != 0)
        first->setCurrentTime(0, false);
    first->setLabel(tr("Pergunta 1"));
    first->setTotalTime(time);

    // All scenes first, so that every link names the scene it means, wherever the quiz starts.
    questionScenes_ = {first};
    for (int i = 2; i <= questions_; ++i) {
        Scene* scene = document_->createScene(-1);
        scene->setLabel(tr("Pergunta %1").arg(i));
        scene->setTotalTime(time);
        questionScenes_.append(scene);
    }
    feedbackScene_ = document_->createScene(-1);
    feedbackScene_->setLabel(tr("Feedback"));
    feedbackScene_->setTotalTime(2 * kSlot * questions_);
    finalScene_ = document_->createScene(-1);

    const QString feedback = QString::number(feedbackScene_->getId());
    for (question_ = 1; question_ <= questions_; ++question_) {
        questionScene_ = questionScenes_.at(question_ - 1);
        document_->setCurrentScene(questionScene_->getId(), true);
        // The time-out is a wrong answer. A time of zero is no limit: the question waits.
        if (time > 0) {
            const Properties timeout = {
                {"link", feedback},
                {"timeEvent", QString::number((question_ + questions_ - 1) * kSlot)}};
            document_->createSync(questionScene_, -1, true, SyncType::goTo, time, timeout, -1);
        }
        createQuestion();
        const QuizView* view = questionViews_.value(question_ - 1);
        int right = view ? view->getRightAnswer() : 0;
        if (right < 1 || right > options_)
            right = QRandomGenerator::global()->bounded(options_) + 1;
        for (int j = 1; j <= options_; ++j) {
            createButton(j, question_, j == right);
            createOption(j, j == right);
        }
    }
    createFeedbackScene();
    document_->setCurrentScene(finalScene_->getId(), true);
    close();
}

void Quiz::shapeMedia(Scene* scene, Media* media, const Properties& properties) {
    media->setProperties(properties);
    // The media's start holds its state: a replay of the scene would otherwise undo the look.
    document_->createSync(scene, media->getId(), true, SyncType::set, 0, media->getProperties(),
                          -1);
}

void Quiz::createQuestion() {
    const QuizView* view = questionViews_.value(question_ - 1);
    QString text = view ? view->getQuestionText().trimmed() : QString();
    if (text.isEmpty())
        text = tr("Pergunta %1").arg(question_);
    Media* media =
        document_->createMedia(questionScene_, QString(), MediaType::text, QString(), text, -1);
    if (!media)
        return;
    media->setLabel(tr("Questão %1").arg(question_));
    Properties look = {{"left", number(5)},
                       {"top", number(kQuestionTop)},
                       {"width", number(90)},
                       {"height", number(kQuestionHeight)},
                       {"textAlignment", QString::number(int(Definitions::kTextAlign::center))}};
    if (view) {
        look.insert("fontFamily", fontOf(view->getQuestionFamily()));
        look.insert("fontSize", QString::number(view->getQuestionSize()));
        look.insert("colorFont", view->getQuestionColor().name());
    }
    shapeMedia(questionScene_, media, look);
}

void Quiz::createButton(int option, int question, bool right) {
    Q_UNUSED(right) // the link tells, not the look: nothing on the canvas gives the answer away
    const QuizView* view = questionViews_.value(question - 1);
    QString text = view ? view->getAnswerTexts().value(option - 1).trimmed() : QString();
    if (text.isEmpty())
        text = tr("Alternativa %1").arg(option);
    button_ = document_->createMedia(questionScene_, QString(), MediaType::shape,
                                     QString::number(int(Definitions::kShapeType::rounded_rect)),
                                     text, -1);
    if (!button_)
        return;
    button_->setLabel(tr("Alternativa %1").arg(option));
    const int columns = options_ > kOneColumn ? 2 : 1;
    const int rows = (options_ + columns - 1) / columns;
    const int row = (option - 1) / columns;
    const int column = (option - 1) % columns;
    const double height = qMin(kAnswerMaxHeight, kAnswersSpace / rows - kAnswerGap);
    const double width = columns == 1 ? 60 : 43;
    const double left = columns == 1 ? 20 : 5 + column * (width + 4);
    Properties look = {{"left", number(left)},
                       {"top", number(kAnswersTop + row * (height + kAnswerGap))},
                       {"width", number(width)},
                       {"height", number(height)},
                       {"colorFill", QColor(207, 226, 243).name()},
                       {"colorOutline", QColor(61, 133, 198).name()},
                       {"textAlignment", QString::number(int(Definitions::kTextAlign::center))}};
    if (view) {
        look.insert("fontFamily", fontOf(view->getOptionFamily()));
        look.insert("fontSize", QString::number(view->getOptionSize()));
        look.insert("colorFont", view->getOptionColor().name());
    }
    shapeMedia(questionScene_, button_, look);
}

// A click on the answer, while playing, enters the feedback scene at the start of the slot of
// this question: the right slot or the wrong one.
void Quiz::createOption(int option, bool right) {
    Q_UNUSED(option)
    if (!button_ || !feedbackScene_)
        return;
    const int second = right ? (question_ - 1) * kSlot : (questions_ + question_ - 1) * kSlot;
    const Properties link = {{"link", QString::number(feedbackScene_->getId())},
                             {"timeEvent", QString::number(second)}};
    document_->createSync(questionScene_, button_->getId(), true, SyncType::select, 0, link, -1);
}

void Quiz::createFeedbackScene() {
    Scene* feedback = feedbackScene_;
    document_->setCurrentScene(feedback->getId(), true);
    for (int i = 1; i <= questions_; ++i) {
        const Scene* next = i < questions_ ? questionScenes_.at(i) : finalScene_.data();
        document_->createSync(feedback, -1, true, SyncType::goTo, kSlot * i,
                              {{"link", QString::number(next->getId())}, {"timeEvent", "0"}}, -1);
        document_->createSync(
            feedback, -1, true, SyncType::goTo, kSlot * (questions_ + i),
            {{"link", QString::number(questionScenes_.at(i - 1)->getId())}, {"timeEvent", "0"}},
            -1);
    }
    const int total = feedback->getTotalTime();
    if (Media* right = createFeedbackPicture(true)) {
        const Properties properties = right->getProperties();
        document_->createSync(feedback, right->getId(), true, SyncType::set, 0, properties, -1);
        document_->createSync(feedback, right->getId(), true, SyncType::stop, total / 2, properties,
                              -1);
    }
    if (Media* wrong = createFeedbackPicture(false)) {
        const Properties properties = wrong->getProperties();
        document_->createSync(feedback, wrong->getId(), true, SyncType::start, total / 2,
                              properties, -1);
        document_->createSync(feedback, wrong->getId(), true, SyncType::set, total / 2, properties,
                              -1);
        document_->createSync(feedback, wrong->getId(), true, SyncType::stop, total, properties,
                              -1);
    }
}

Media* Quiz::createFeedbackPicture(bool right) {
    Scene* feedback = feedbackScene_;
    const QString path = right ? rightImage_ : wrongImage_;
    const spatialview::ImageItem* item = right ? rightItem_ : wrongItem_;
    const double width = Definitions::getViewWidth();
    const double height = Definitions::getViewHeight();
    Media* media = nullptr;
    if (!path.isEmpty()) {
        media = document_->createMedia(feedback, path, MediaType::image, QString(), QString(), -1);
        if (media && item) {
            // The preview stands at half the size of the canvas.
            media->setLeftPx(2 * item->scenePos().x(), width);
            media->setTopPx(2 * item->scenePos().y(), height);
            media->setWidthPx(2 * number(item->getRect().width()).toDouble(), width);
            media->setHeightPx(2 * number(item->getRect().height()).toDouble(), height);
        }
    } else {
        // No picture chosen: a caption in the colour of the outcome says it instead.
        media = document_->createMedia(feedback, QString(), MediaType::shape,
                                       QString::number(int(Definitions::kShapeType::rounded_rect)),
                                       right ? tr("Resposta certa!") : tr("Resposta errada!"), -1);
        if (media)
            media->setProperties(
                {{"left", number(25)},
                 {"top", number(35)},
                 {"width", number(50)},
                 {"height", number(30)},
                 {"colorFill", right ? QColor(56, 142, 60).name() : QColor(198, 40, 40).name()},
                 {"colorOutline", QColor(Qt::white).name()},
                 {"colorFont", QColor(Qt::white).name()},
                 {"fontSize", "28"},
                 {"textAlignment", QString::number(int(Definitions::kTextAlign::center))}});
    }
    if (media)
        media->setLabel(right ? tr("Imagem de acerto") : tr("Imagem de erro"));
    return media;
}

} // namespace wizards
} // namespace selvora
