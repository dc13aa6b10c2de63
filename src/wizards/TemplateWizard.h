#ifndef SELVORA_WIZARDS_TEMPLATEWIZARD_H
#define SELVORA_WIZARDS_TEMPLATEWIZARD_H

#include <QPointer>
#include <QWizard>

class QComboBox;
class QLabel;
class QSpinBox;
class QWizardPage;

namespace selvora {
namespace document {
class Document;
class Scene;
} // namespace document

namespace wizards {

// Settles how two templates of a scene follow each other in time. Each of its two pages, the
// start and the end, is a sentence made of widgets: template A, the relation, template B, and
// the interval in seconds. Finishing writes the start and stop syncs of both templates and
// records the relation on each; cancelling leaves the scene as it was.
class TemplateWizard : public QWizard {
    Q_OBJECT
public:
    // The relation combo, by index.
    enum Relation { none = 0, before = 1, after = 2, equal = 3, withEnd = 4, withStart = 5 };

    // One page's sentence.
    struct Sentence {
        QComboBox* templateA = nullptr;
        QComboBox* templateB = nullptr;
        QComboBox* relation = nullptr;
        QSpinBox* interval = nullptr;
        QLabel* nameA = nullptr;
        QLabel* nameB = nullptr;
        QLabel* intervalLabel = nullptr;
    };

    // On the scene given, or on the current scene.
    TemplateWizard(document::Document* document, QWidget* parent, document::Scene* scene = nullptr);

    const Sentence& startSentence() const { return start_; }
    const Sentence& endSentence() const { return end_; }

    void accept() override;

public slots:
    void createSyncs();
    void setRelations();
    void enableStartInterval(int index);
    void enableEndInterval(int index);
    void updateTemplateAStartBox(int index);
    void updateTemplateBStartBox(int index);
    void updateTemplateAEndBox(int index);
    void updateTemplateBEndBox(int index);
    void updateTimeStartLabel(int value);
    void updateTimeEndLabel(int value);

private:
    void createObjects();
    QWizardPage* createStartPage();
    QWizardPage* createEndPage();
    QWizardPage* createPage(Sentence& sentence, const QString& title);
    void setConnections();
    // Keeps A and B apart after `changed` took `index`, renames the sentence, and makes the
    // other page show the same template in that place.
    void keepApart(Sentence& sentence, bool changedA, int index, Sentence& other);
    void updateNames(Sentence& sentence);
    static void enableInterval(Sentence& sentence, int index);
    static void updateTimeLabel(Sentence& sentence, int value);
    static int idOf(const QComboBox* combo);
    QString labelOf(int templateId) const;
    void createStartSyncs();
    void createEndSyncs();
    int startTime(int templateId) const;
    bool bothOnScene() const;

    document::Document* document_;
    QPointer<document::Scene> scene_;
    Sentence start_;
    Sentence end_;
};

} // namespace wizards
} // namespace selvora

#endif
