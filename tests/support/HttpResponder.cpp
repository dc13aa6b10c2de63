#include "support/HttpResponder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpSocket>
#include <QTimer>

namespace selvora {
namespace test {

namespace {
QByteArray reason(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 404:
        return "Not Found";
    case 500:
        return "Internal Server Error";
    default:
        return "Status";
    }
}
} // namespace

QByteArray HttpResponder::Request::header(const QByteArray& name) const {
    for (const auto& pair : headers) {
        if (pair.first.toLower() == name.toLower())
            return pair.second;
    }
    return QByteArray();
}

HttpResponder::HttpResponder(QObject* parent) : QObject(parent) {
    connect(&server_, &QTcpServer::newConnection, this, &HttpResponder::onConnection);
    if (!server_.listen(QHostAddress::LocalHost, 0))
        qWarning("HttpResponder: cannot listen: %s", qPrintable(server_.errorString()));
}

HttpResponder::~HttpResponder() {
    // The sockets die with the server, after our members: they must not call back.
    const auto sockets = server_.findChildren<QTcpSocket*>();
    for (QTcpSocket* socket : sockets)
        socket->disconnect(this);
    releaseHeld();
}

QString HttpResponder::url(const QString& path) const {
    return QStringLiteral("http://127.0.0.1:%1%2").arg(server_.serverPort()).arg(path);
}

void HttpResponder::route(const QByteArray& path, const Reply& reply) {
    routes_.insert(path, reply);
}

HttpResponder::Reply HttpResponder::ok(const QByteArray& body, const QByteArray& contentType) {
    Reply reply;
    reply.body = body;
    reply.contentType = contentType;
    return reply;
}

HttpResponder::Reply HttpResponder::status(int code, const QByteArray& body) {
    Reply reply;
    reply.status = code;
    reply.body = body;
    reply.contentType = "text/html";
    return reply;
}

bool HttpResponder::waitForRequests(int count, int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (requests_.size() < count && clock.elapsed() < timeoutMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return requests_.size() >= count;
}

void HttpResponder::releaseHeld() {
    released_ = true;
    for (const QPointer<QTcpSocket>& socket : qAsConst(held_)) {
        if (socket)
            socket->abort();
    }
    held_.clear();
}

int HttpResponder::heldOpen() const {
    int open = 0;
    for (const QPointer<QTcpSocket>& socket : held_) {
        if (socket && socket->state() == QAbstractSocket::ConnectedState)
            ++open;
    }
    return open;
}

void HttpResponder::onConnection() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { onReadable(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QObject::destroyed, this, [this, socket] { pending_.remove(socket); });
    }
}

void HttpResponder::onReadable(QTcpSocket* socket) {
    QByteArray& buffer = pending_[socket];
    buffer += socket->readAll();
    const int headerEnd = buffer.indexOf("\r\n\r\n");
    if (headerEnd < 0)
        return;
    const QList<QByteArray> lines = buffer.left(headerEnd).split('\n');
    Request request;
    const QList<QByteArray> first = lines.value(0).trimmed().split(' ');
    request.method = first.value(0);
    request.target = first.value(1);
    for (int i = 1; i < lines.size(); ++i) {
        const int colon = lines.at(i).indexOf(':');
        if (colon > 0)
            request.headers.append(
                {lines.at(i).left(colon).trimmed(), lines.at(i).mid(colon + 1).trimmed()});
    }
    const int length = request.header("Content-Length").toInt();
    if (buffer.size() < headerEnd + 4 + length)
        return; // the rest of the body is still on its way
    request.body = buffer.mid(headerEnd + 4, length);
    buffer.clear();
    requests_.append(request);

    const QByteArray path = request.target.split('?').value(0);
    Reply reply = status(404, "not here");
    if (routes_.contains(request.target))
        reply = routes_.value(request.target);
    else if (routes_.contains(path))
        reply = routes_.value(path);
    if (reply.kind == Reply::Kind::never) {
        if (released_)
            socket->abort(); // a client that tries again is closed at once
        else
            held_.append(socket);
        return;
    }
    if (reply.delayMs > 0) {
        QPointer<QTcpSocket> guarded(socket);
        QTimer::singleShot(reply.delayMs, this, [this, guarded, reply] {
            if (guarded)
                answer(guarded, reply);
        });
        return;
    }
    answer(socket, reply);
}

void HttpResponder::answer(QTcpSocket* socket, const Reply& reply) {
    QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + ' ' + reason(reply.status) +
                      "\r\nContent-Type: " + reply.contentType +
                      "\r\nContent-Length: " + QByteArray::number(reply.body.size()) +
                      "\r\nConnection: close\r\n\r\n";
    if (reply.kind == Reply::Kind::closeMidBody) {
        socket->write(head + reply.body.left(reply.body.size() / 2));
        socket->flush();
        socket->abort();
        return;
    }
    socket->write(head + reply.body);
    socket->disconnectFromHost();
}

} // namespace test
} // namespace selvora
