#ifndef SELVORA_TESTS_HTTPRESPONDER_H
#define SELVORA_TESTS_HTTPRESPONDER_H

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QTcpServer>

class QTcpSocket;

namespace selvora {
namespace test {

// A small web server on 127.0.0.1, on a port of the system's choosing, for the services the
// program reaches: it records every request and answers the canned reply set for its path.
class HttpResponder : public QObject {
    Q_OBJECT
public:
    struct Reply {
        enum class Kind {
            full,         // status, headers and the whole body
            never,        // reads the request and says nothing, until released
            closeMidBody, // announces the whole body, sends half, and closes
        };
        int status = 200;
        QByteArray body;
        Kind kind = Kind::full;
        int delayMs = 0;
        QByteArray contentType = "text/xml";
    };
    struct Request {
        QByteArray method;
        QByteArray target; // path and query, as sent
        QList<QPair<QByteArray, QByteArray>> headers;
        QByteArray body;
        QByteArray header(const QByteArray& name) const;
    };

    explicit HttpResponder(QObject* parent = nullptr);
    ~HttpResponder() override;

    // "http://127.0.0.1:<port>" followed by the path.
    QString url(const QString& path) const;
    // The reply for a target; the path alone is tried when the full target has none.
    // Unknown targets get 404.
    void route(const QByteArray& path, const Reply& reply);
    static Reply ok(const QByteArray& body, const QByteArray& contentType = "text/xml");
    static Reply status(int code, const QByteArray& body = QByteArray());

    const QList<Request>& requests() const { return requests_; }
    bool waitForRequests(int count, int timeoutMs = 20000);
    // Closes the connections whose answer was held back, and from now on every connection
    // that would be held.
    void releaseHeld();
    // The held connections that the client has not closed.
    int heldOpen() const;

private:
    void onConnection();
    void onReadable(QTcpSocket* socket);
    void answer(QTcpSocket* socket, const Reply& reply);

    QTcpServer server_;
    QHash<QByteArray, Reply> routes_;
    QHash<QTcpSocket*, QByteArray> pending_;
    QList<QPointer<QTcpSocket>> held_;
    QList<Request> requests_;
    bool released_ = false;
};

} // namespace test
} // namespace selvora

#endif
