#include "document/Document.h"
#include "document/Media.h"
#include "document/Scene.h"
#include "document/Sync.h"
#include "document/Template.h"
#include "spatialview/SpatialResizingMedia.h"
#include "spatialview/SpatialView.h"
#include "spatialview/TimeDialog.h"
#include "support/CanvasTest.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <functional>

using namespace selvora;
using namespace selvora::test;
using document::Media;
using document::Scene;
using document::Sync;
using spatialview::SpatialView;
using SyncType = Definitions::kSyncType;
using Fill = std::function<void(QWidget*)>;

namespace {

// Answers every request on 127.0.0.1: 200 for "/ok", 404 otherwise.
class PageServer : public QTcpServer {
public:
    PageServer() {
        listen(QHostAddress::LocalHost, 0);
        connect(this, &QTcpServer::newConnection, this, [this]() {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [socket]() {
                const QByteArray request = socket->readAll();
                const bool ok = request.contains(" /ok ");
                socket->write(ok ? "HTTP/1.1 200 OK\r\n" : "HTTP/1.1 404 Not Found\r\n");
                socket->write("Content-Length: 0\r\nConnection: close\r\n\r\n");
                socket->disconnectFromHost();
            });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        });
    }
    QString url(const QString& path) const {
        return QString("127.0.0.1:%1%2").arg(serverPort()).arg(path);
    }
};

// What a dialog showed and left.
struct Outcome {
    QString title;
    QList<ModalAnswerer::Seen> boxes;
    bool stillOpen = false;
};

void setTime(QWidget* dialog, int index, const QString& text) {
    dialog->findChildren<QLineEdit*>().at(index)->setText(text);
}

void choose(QWidget* dialog, int index, int data) {
    QComboBox* box = dialog->findChildren<QComboBox*>().at(index);
    box->setCurrentIndex(box->findData(data));
}

} // namespace

class TestCanvasDialogs : public CanvasTest {
    Q_OBJECT

private:
    Media* media = nullptr;

    int timeOf(SyncType type) const {
        const Sync* sync = scene()->getSync(type, media->getId(), true);
        return sync ? sync->getTime() : -1;
    }
    bool shown() const { return itemOf(media)->isVisible(); }

    // Opens a dialog, fills it and presses "&Salvar"; a box that follows gets `answer`, and a
    // dialog left open is then closed as the user would.
    Outcome submit(void (SpatialView::*open)(), const Fill& fill, const QString& answer = "OK") {
        return submit([this, open]() { (canvas()->*open)(); }, fill, answer);
    }
    Outcome submit(const std::function<void()>& open, const Fill& fill,
                   const QString& answer = "OK") {
        Outcome outcome;
        ModalAnswerer answerer;
        answerer.answerWith([&](QWidget* dialog) {
            fill(dialog);
            // The boxes over the dialog only; the dialog itself stays for the code to close.
            QList<QPointer<QMessageBox>> answered;
            QTimer boxes;
            boxes.setInterval(20);
            connect(&boxes, &QTimer::timeout, [&]() {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (!box || answered.contains(box))
                    return;
                answered << box;
                ModalAnswerer::Seen seen;
                seen.title = box->windowTitle();
                seen.text = box->text();
                seen.pressed = answer;
                outcome.boxes << seen;
                ModalAnswerer::pressButton(box, answer);
            });
            boxes.start();
            QPushButton* save = nullptr;
            for (QPushButton* button : dialog->findChildren<QPushButton*>())
                save = button->text() == "&Salvar" ? button : save;
            save->click();
            // A check of an address goes on after the click.
            QElapsedTimer clock;
            clock.start();
            while (dialog->isVisible() && !save->isEnabled() && clock.elapsed() < 10000)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            outcome.stillOpen = dialog->isVisible();
            if (outcome.stillOpen)
                static_cast<QDialog*>(dialog)->reject();
        });
        open();
        outcome.title = answerer.last().title;
        return outcome;
    }

private slots:
    void initTestCase() { QVERIFY(openBench()); }
    void init() {
        QVERIFY(newProject());
        scene()->setTotalTime(20);
        const QString path = MediaFixtures::makeImage(files->path(), "a.png", QSize(60, 40));
        media = doc->createMedia(scene(), path, Definitions::kMediaType::image, "", "");
        media->setLabel("Foto");
    }
    void cleanupTestCase() { bench.reset(); }

    // A media's start (the clock at 3 s, a stop maybe at 10 s) and stop (the clock at 6 s, the
    // start at 2 s): the refusals with their texts, the canvas at the clock, and one undo step.
    void mediaTimes_data() {
        QTest::addColumn<bool>("start");
        QTest::addColumn<int>("other"); // the other end's second; -1: none
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text"); // the refusal; empty: none
        QTest::addColumn<int>("result");   // the end's second afterwards; -1: none
        const QString media = "O tempo do %1 de exibição da mídia \"Foto\" ";
        const QString start = media.arg("início"), stop = media.arg("fim");
        QTest::newRow("start past the scene")
            << true << -1 << "00:00:21" << start + "não pode ser maior que o tempo total da cena."
            << 0;
        QTest::newRow("start at the stop")
            << true << 10 << "00:00:10" << start + "tem que ser menor que o tempo de fim." << 0;
        QTest::newRow("start before the stop: kept from here")
            << true << 10 << "00:00:04" << QString() << 0;
        QTest::newRow("good start") << true << -1 << "00:00:05" << QString() << 5;
        QTest::newRow("stop at the start")
            << false << 2 << "00:00:02" << stop + "tem que ser maior o tempo de início." << -1;
        QTest::newRow("stop at the end of the scene")
            << false << 2 << "00:00:20" << QString() << 20;
    }
    void mediaTimes() {
        QFETCH(bool, start);
        QFETCH(int, other);
        QFETCH(QString, typed);
        QFETCH(QString, text);
        QFETCH(int, result);
        const SyncType end = start ? SyncType::start : SyncType::stop;
        const int now = start ? 3 : 6;
        const int before = start ? 0 : -1;
        if (other >= 0)
            doc->createSync(scene(), media->getId(), true, start ? SyncType::stop : SyncType::start,
                            other, media->getProperties());
        seek(now);
        const QString title = start ? "Início de exibição da mídia" : "Fim de exibição da mídia";
        const Outcome outcome = submit(
            start ? &SpatialView::setStartTime : &SpatialView::setStopTime, [&](QWidget* dialog) {
                QCOMPARE(dialog->findChild<QLineEdit*>()->text(),
                         start ? QString("00:00:00") : QString("00:00:06"));
                setTime(dialog, 0, typed);
            });
        QCOMPARE(outcome.title, title + ".");
        QCOMPARE(outcome.boxes.size(), text.isEmpty() ? 0 : 1);
        if (!text.isEmpty()) {
            QCOMPARE(outcome.boxes.at(0).title, title);
            QCOMPARE(outcome.boxes.at(0).text, text);
        }
        QCOMPARE(outcome.stillOpen, result == before);
        QCOMPARE(timeOf(end), result);
        QCOMPARE(shown(), start ? result <= now : result < 0 || result > now);
        if (result == before)
            return;
        // One step back: the end and the picture as they were.
        doc->undoAction();
        QCOMPARE(timeOf(end), before);
        QVERIFY(shown());
    }

    // A template's times have their own words; the dialog keeps the media's title.
    void templateStopBeforeItsStart() {
        document::Template* templ = doc->createTemplate(scene());
        scene()->addTemplate(templ->getId());
        const int id = templ->getId();
        const Outcome outcome = submit(
            [&]() {
                spatialview::TimeDialog dialog(doc, scene(), id, false,
                                               spatialview::TimeDialog::End::stop, nullptr);
                dialog.exec();
            },
            [&](QWidget* dialog) { setTime(dialog, 0, "00:00:00"); });
        QCOMPARE(outcome.title, QString("Fim de exibição da mídia."));
        QCOMPARE(outcome.boxes.size(), 1);
        QCOMPARE(outcome.boxes.at(0).title, QString("Fim de exibição do template"));
        QCOMPARE(outcome.boxes.at(0).text, QString("O tempo do fim de exibição do template tem que "
                                                   "ser maior o tempo de início."));
        QVERIFY(!scene()->getSync(SyncType::stop, id, false));
    }

    void automaticLink_data() {
        QTest::addColumn<QString>("at");
        QTest::addColumn<bool>("toItself");
        QTest::addColumn<QString>("instant");
        QTest::addColumn<QString>("text");
        QTest::newRow("no scene") << "00:00:10" << false << "00:00:00"
                                  << "none";
        QTest::newRow("past the scene")
            << "00:00:21" << true << "00:00:00"
            << "A Cena \"Cena 1\" tem o tempo total de \"00:00:20\". O instante de tempo em que "
               "o elo automático é acionado não pode ser maior que o tempo total da cena.";
        QTest::newRow("to the instant that fires it")
            << "00:00:07" << true << "00:00:07"
            << "A Cena \"Cena 1\" não pode ter um elo automático para ela mesmo que vá para o "
               "mesmo instante de tempo em que é acionado.";
        QTest::newRow("a loop") << "00:00:20" << true << "00:00:02"
                                << "";
    }
    void automaticLink() {
        QFETCH(QString, at);
        QFETCH(bool, toItself);
        QFETCH(QString, instant);
        QFETCH(QString, text);
        Scene* here = scene();
        Scene* other = doc->createScene();
        doc->setCurrentScene(here->getId(), true);
        const int target = text == "none" ? -1 : toItself ? here->getId() : other->getId();
        const Outcome outcome = submit(&SpatialView::setLinkAutomatic, [&](QWidget* dialog) {
            setTime(dialog, 0, at);
            choose(dialog, 0, target);
            setTime(dialog, 1, instant);
        });
        QCOMPARE(outcome.title, QString("Elo automático da cena."));
        const QList<Sync*> gotos = here->getAllSyncs(SyncType::goTo);
        if (!text.isEmpty()) {
            QCOMPARE(outcome.boxes.size(), 1);
            QCOMPARE(outcome.boxes.at(0).title, QString("Elo automático da cena"));
            QCOMPARE(outcome.boxes.at(0).text,
                     text == "none" ? QString("Selecione no campo \"Ir para\" qual a cena o elo "
                                              "automático deve acionar.")
                                    : text);
            QVERIFY(gotos.isEmpty());
            return;
        }
        QCOMPARE(gotos.size(), 1);
        QCOMPARE(gotos.at(0)->getTime(), TimeTextSeconds(at));
        QCOMPARE(gotos.at(0)->getLink(), QString::number(target));
        QCOMPARE(gotos.at(0)->getTimeEvent(), QString::number(TimeTextSeconds(instant)));
        doc->undoAction();
        QVERIFY(here->getAllSyncs(SyncType::goTo).isEmpty());
    }

    void webLink_data() {
        QTest::addColumn<QString>("path"); // null: an empty address
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("reason"); // empty: no question
        QTest::addColumn<bool>("saved");
        QTest::newRow("a page that answers") << "/ok"
                                             << ""
                                             << "" << true;
        QTest::newRow("no such page, kept out") << "/nada"
                                                << "Não"
                                                << "Erro relacionado ao conteúdo." << false;
        QTest::newRow("nobody listening") << "closed"
                                          << "Não"
                                          << "Erro relacionado a rede." << false;
        QTest::newRow("empty address") << QString() << "Não"
                                       << "Erro de protocolo." << false;
    }
    void webLink() {
        QFETCH(QString, path);
        QFETCH(QString, answer);
        QFETCH(QString, reason);
        QFETCH(bool, saved);
        PageServer server;
        QString address;
        if (path == "closed") {
            QTcpServer closed;
            closed.listen(QHostAddress::LocalHost, 0);
            address = QString("127.0.0.1:%1/").arg(closed.serverPort());
        } else if (!path.isNull()) {
            address = server.url(path);
        }
        const Outcome outcome = submit(
            &SpatialView::setLinkInteractiveWeb,
            [&](QWidget* dialog) {
                auto* edit = dialog->findChildren<QLineEdit*>().last();
                edit->setText(address);
                emit edit->editingFinished();
                if (!address.isEmpty())
                    QCOMPARE(edit->text(), "http://" + address);
                choose(dialog, 1, Qt::Key_Enter);
            },
            answer);
        QCOMPARE(outcome.title, QString("Elo para página Web"));
        QCOMPARE(outcome.boxes.size(), reason.isEmpty() ? 0 : 1);
        if (!reason.isEmpty()) {
            QCOMPARE(outcome.boxes.at(0).title, QString("Elo para página Web"));
            QCOMPARE(outcome.boxes.at(0).text,
                     QString("Não foi possível testar o endereço indicado.\n%1\n\nDeseja salvar "
                             "mesmo assim?\n")
                         .arg(reason));
        }
        QCOMPARE(outcome.stillOpen, !saved);
        const Sync* link = scene()->getSync(SyncType::select, media->getId(), true);
        QCOMPARE(bool(link), saved);
        if (saved) {
            QCOMPARE(link->getUrl(), "http://" + address);
            QCOMPARE(link->getKey(), QString::number(Qt::Key_Enter));
        }
    }

    void rename_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("label");
        QTest::newRow("empty") << ""
                               << "Foto";
        QTest::newRow("sixteen characters") << "abcdefghijklmnop"
                                            << "abcdefghijklmno";
    }
    void rename() {
        QFETCH(QString, typed);
        QFETCH(QString, label);
        const Outcome outcome = submit(&SpatialView::renameMedia, [&](QWidget* dialog) {
            auto* edit = dialog->findChild<QLineEdit*>();
            QCOMPARE(edit->text(), QString("Foto"));
            edit->clear();
            QTest::keyClicks(edit, typed);
        });
        QCOMPARE(outcome.title, QString("Rótulo da mídia."));
        QCOMPARE(media->getLabel(), label);
        QCOMPARE(outcome.stillOpen, label == "Foto");
        if (label == "Foto") {
            QCOMPARE(outcome.boxes.size(), 1);
            QCOMPARE(outcome.boxes.at(0).title, QString("Rótulo da mídia."));
            QCOMPARE(outcome.boxes.at(0).text,
                     QString("Por favor, informe o rótulo da mídia antes de salvar."));
            return;
        }
        doc->undoAction();
        QCOMPARE(media->getLabel(), QString("Foto"));
    }

private:
    static int TimeTextSeconds(const QString& text) {
        const QStringList parts = text.split(':');
        return parts[0].toInt() * 3600 + parts[1].toInt() * 60 + parts[2].toInt();
    }
};

SELVORA_TEST_MAIN(TestCanvasDialogs)
#include "tst_canvasdialogs.moc"
