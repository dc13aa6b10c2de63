#ifndef SELVORA_TESTS_URLCATCHER_H
#define SELVORA_TESTS_URLCATCHER_H

#include <QList>
#include <QObject>
#include <QUrl>

namespace selvora {
namespace test {

// Takes every address the program hands to the desktop (web pages, files), so that no browser
// starts; the addresses are kept in order.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    explicit UrlCatcher(QObject* parent = nullptr);
    ~UrlCatcher() override;

    const QList<QUrl>& opened() const { return opened_; }

public slots:
    void open(const QUrl& url);

private:
    QList<QUrl> opened_;
};

} // namespace test
} // namespace selvora

#endif
