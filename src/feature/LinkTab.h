#ifndef SELVORA_FEATURE_LINKTAB_H
#define SELVORA_FEATURE_LINKTAB_H

#include <QList>
#include <QString>
#include <QWidget>

class QComboBox;
class QLineEdit;

namespace selvora {
namespace document {
class Scene;
}

class TwoStageToolTip;

namespace feature {

// The tab "Elo": the media's link to a scene (and the second to enter it at), to a web address,
// and its key. The panel reads and sets the controls directly; the tab builds them and their
// lists.
class LinkTab : public QWidget {
    Q_OBJECT
public:
    LinkTab(TwoStageToolTip* tips, QWidget* parent = nullptr);

    // An empty entry, then one per scene; the entry chosen before stays chosen if it remains.
    void fillScenes(const QList<document::Scene*>& scenes);
    // An empty entry, then the nine keys with their pictures.
    void fillKeys();

    // The start edit's time in seconds, within what the edit can show.
    int seconds() const;
    void setSeconds(int seconds);
    // Each field is a base-60 digit after the one before it.
    static int timeSeconds(const QStringList& fields);

    QComboBox* target = nullptr;
    QLineEdit* start = nullptr;
    QLineEdit* url = nullptr;
    QComboBox* key = nullptr;
};

} // namespace feature
} // namespace selvora

#endif
