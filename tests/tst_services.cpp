// The services on the network, each against a server the test starts on 127.0.0.1: the export
// through the conversion service, the update check (menu and start-up), the contact form, and
// the boxes of the Help menu. Every address the program opens is caught here.
#include "app/ContactForm.h"
#include "app/MainWindow.h"
#include "app/Menu.h"
#include "app/UpdateCheck.h"
#include "document/Document.h"
#include "project/OperationsFile.h"
#include "project/Project.h"
#include "support/HttpResponder.h"
#include "support/MediaFixtures.h"
#include "support/ModalAnswerer.h"
#include "support/TestMain.h"
#include "support/UrlCatcher.h"
#include "support/WindowBench.h"

#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QUrlQuery>

#include <algorithm>

using selvora::Definitions;
using selvora::document::Document;
using selvora::menu::ContactForm;
using selvora::menu::Menu;
using selvora::menu::UpdateCheck;
using selvora::project::OperationsFile;
using selvora::project::Project;
using selvora::test::HttpResponder;
using selvora::test::MediaFixtures;
using selvora::test::ModalAnswerer;
using selvora::test::UrlCatcher;
using selvora::test::WindowBench;
using Kind = HttpResponder::Reply::Kind;

namespace {
const QString kExport = QString::fromUtf8("Exportação");
const QString kUpdate = QString::fromUtf8("Atualização do Selvorá");
const QString kConnection = QString::fromUtf8(
    "<h2>Erro de conexão</h2><p>Impossível conectar ao servidor. Verifique sua conexão com a "
    "internet.");
const QString kNclDone = QString::fromUtf8(
    "<h2>Projeto exportado com sucesso.</h2><p>Acesse a pasta do seu projeto e execute o arquivo "
    "<b>aula.ncl</b>.");
const QString kCurrent = QString::fromUtf8("A sua versão é a mais atual no momento.");
const char* const kVariables[] = {"SELVORA_CONVERSION_URL", "SELVORA_UPDATE_URLS",
                                  "SELVORA_CONTACT_URL", "SELVORA_CONTACT_TO",
                                  "SELVORA_PORTAL_URL"};

QString offer(const QString& version) {
    return QString::fromUtf8("Existe uma nova versão da ferramenta Selvorá.\nDeseja fazer o "
                             "download da versão %1?")
        .arg(version);
}

// A version document with a Linux entry, and a higher one for another platform to be ignored.
QByteArray versionDocument(const QByteArray& value, const QByteArray& src = "http://d/x") {
    return "<?xml version=\"1.0\"?>\n<versions><windows><version value=\"9.9.9\" src=\"http://w\"/>"
           "</windows><linux><version value=\"" +
           value + "\" src=\"" + src + "\"><note>Correções</note></version></linux></versions>";
}

// Four canned answers: a document, or "ERROR" (404 with no body), or "HUGE" (50 MB of XML).
void routeFour(HttpResponder& server, const QList<QByteArray>& bodies) {
    QStringList urls;
    for (int i = 0; i < bodies.size(); ++i) {
        const QByteArray path = "/u" + QByteArray::number(i + 1) + "/version_selvora.xml";
        HttpResponder::Reply reply = HttpResponder::ok(bodies.at(i));
        if (bodies.at(i) == "ERROR")
            reply = HttpResponder::status(404);
        else if (bodies.at(i) == "HUGE")
            reply.body = "<versions>" + QByteArray(50 * 1024 * 1024, ' ') + "</versions>";
        server.route(path, reply);
        urls << server.url(QString::fromLatin1(path));
    }
    qputenv("SELVORA_UPDATE_URLS", urls.join(QStringLiteral(" \n ")).toUtf8());
}

} // namespace

class TestServices : public QObject {
    Q_OBJECT
private:
    Document* doc = nullptr;
    Project* project = nullptr;
    QTemporaryDir* temp = nullptr;

    // A project saved at temp/aula, unmodified, with its folder returned.
    QString savedProject() {
        const QString folder = temp->path() + "/aula";
        OperationsFile operations(doc);
        if (!operations.makeProject(folder))
            return QString();
        operations.saveProject();
        return folder;
    }
    bool waitIdle() {
        QDialog* dialog = project->getProgressDialog();
        return QTest::qWaitFor([dialog] { return !dialog->isVisible(); }, 30000);
    }

private slots:
    void initTestCase() {
        // Loopback only, whatever proxy the machine names.
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        qRegisterMetaType<QNetworkReply*>();
    }
    void init() {
        for (const char* variable : kVariables)
            qunsetenv(variable);
        doc = Document::instance();
        doc->newProject();
        project = new Project(doc);
        temp = new QTemporaryDir();
    }
    void cleanup() {
        QVERIFY(waitIdle());
        delete project;
        doc->newProject();
        delete temp;
        for (const char* variable : kVariables)
            qunsetenv(variable);
    }

    // The form reaches the service byte for byte; the answer becomes <base>.html or <base>.ncl,
    // replacing an earlier export, and the report offers the page.
    void exportForm_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("text");
        QTest::addRow("HTML") << 0 << QByteArray("/conversor/convert.php?type=html") << "aula.html"
                              << QString::fromUtf8(
                                     "<h2>Projeto exportado com sucesso.</h2><p>O arquivo "
                                     "<b>aula.html</b> já se encontra na pasta do projeto.<p>"
                                     "Deseja abrir o arquivo no browser padrão do seu "
                                     "computador?");
        QTest::addRow("NCL") << 1 << QByteArray("/conversor/translate.php") << "aula.ncl"
                             << kNclDone;
    }
    void exportForm() {
        QFETCH(int, type);
        QFETCH(QByteArray, target);
        QFETCH(QString, file);
        QFETCH(QString, text);
        const QByteArray answer = QString::fromUtf8("<html><p>Lição à vista</p></html>\n").toUtf8();
        HttpResponder server;
        server.route(target.split('?').first(), HttpResponder::ok(answer, "text/html"));
        qputenv("SELVORA_CONVERSION_URL", server.url("/conversor").toUtf8());
        const QString folder = savedProject();
        QFile former(folder + "/" + file);
        QVERIFY(former.open(QIODevice::WriteOnly));
        former.write("antigo, bem mais comprido que a resposta nova do serviço de conversão");
        former.close();

        UrlCatcher urls;
        ModalAnswerer answerer;
        answerer.answer(type == 0 ? "Sim" : "OK");
        doc->exportProject(static_cast<Definitions::kTypeExport>(type));
        QVERIFY(answerer.waitAllAnswered(30000));
        QVERIFY(waitIdle());

        QCOMPARE(answerer.last().text, text);
        QCOMPARE(MediaFixtures::contents(folder + "/" + file), answer);
        QCOMPARE(urls.opened(),
                 type == 0 ? QList<QUrl>{QUrl::fromLocalFile(folder + "/" + file)} : QList<QUrl>());

        QCOMPARE(server.requests().size(), 1);
        const HttpResponder::Request request = server.requests().first();
        QCOMPARE(request.target, target);
        const QByteArray contentType = request.header("Content-Type");
        const QByteArray prefix = "multipart/form-data; boundary=";
        QVERIFY2(contentType.startsWith(prefix), contentType);
        QByteArray boundary = contentType.mid(prefix.size());
        if (boundary.startsWith('"'))
            boundary = boundary.mid(1, boundary.size() - 2);
        const QByteArray path = (folder + "/aula.svproj").toLatin1();
        const QByteArray expected =
            "--" + boundary + "\r\nContent-Disposition: form-data; name=\"" + path + "\"\r\n\r\n" +
            path + "\r\n--" + boundary +
            "\r\nContent-Type: text/html\r\nContent-Disposition: form-data; "
            "name=\"selvora_file\"; filename=\"aula.svproj\"\r\n\r\n" +
            MediaFixtures::contents(folder + "/aula.svproj") + "\r\n--" + boundary + "--\r\n";
        QCOMPARE(request.body, expected);
    }

    // Bad answers and no service: a plain report, nothing stored, nothing left running.
    void exportFailures_data() {
        QTest::addColumn<bool>("configured");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("stored"); // null: no file
        const QByteArray page(4000, 'x');
        QTest::addRow("status 500")
            << true << int(Kind::full) << 500 << page << kConnection << QByteArray();
        QTest::addRow("closes mid-body")
            << true << int(Kind::closeMidBody) << 200 << page << kConnection << QByteArray();
        QTest::addRow("NUL in the body")
            << true << int(Kind::full) << 200 << QByteArray("<ncl>antes\0depois</ncl>", 23)
            << kNclDone << QByteArray("<ncl>antes");
        // Without a service the program writes the document itself.
        QTest::addRow("no service configured")
            << false << 0 << 0 << QByteArray() << kNclDone << QByteArray("<?xml");
    }
    void exportFailures() {
        QFETCH(bool, configured);
        QFETCH(int, kind);
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(QString, text);
        QFETCH(QByteArray, stored);
        HttpResponder server;
        HttpResponder::Reply reply = HttpResponder::status(status, body);
        reply.kind = static_cast<Kind>(kind);
        server.route("/translate.php", reply);
        if (configured)
            qputenv("SELVORA_CONVERSION_URL", server.url("/").toUtf8());
        const QString folder = savedProject();

        ModalAnswerer answerer;
        answerer.answer("OK");
        doc->exportProject(Definitions::kTypeExport::NCL);
        QVERIFY(answerer.waitAllAnswered(30000));
        QVERIFY(waitIdle());
        QCOMPARE(answerer.seen().size(), 1);
        QCOMPARE(answerer.last().text, text);
        QCOMPARE(server.requests().size(), configured ? 1 : 0);
        QCOMPARE(QFile::exists(folder + "/aula.ncl"), !stored.isNull());
        if (!stored.isNull())
            QCOMPARE(MediaFixtures::contents(folder + "/aula.ncl")
                         .left(configured ? INT_MAX : stored.size()),
                     stored);
    }

    // A service that never answers: the progress dialog stays up, without a time-out, but it
    // holds nothing modal, so the window goes on working; closing the program ends it.
    void exportWithoutAnswer() {
        HttpResponder server;
        HttpResponder::Reply silent;
        silent.kind = Kind::never;
        server.route("/convert.php", silent);
        qputenv("SELVORA_CONVERSION_URL", server.url("").toUtf8());
        savedProject();

        ModalAnswerer answerer;
        doc->exportProject(Definitions::kTypeExport::HTML);
        QVERIFY(server.waitForRequests(1));
        QDialog* progress = project->getProgressDialog();
        QVERIFY(progress->isVisible());
        QVERIFY(!progress->isModal());
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
        QVERIFY(answerer.seen().isEmpty());

        // The user closes the program while the service keeps silent: the worker ends with it.
        QCOMPARE(server.heldOpen(), 1);
        delete project;
        project = new Project(doc);
        QTRY_COMPARE(server.heldOpen(), 0);
        QVERIFY(answerer.seen().isEmpty());
    }

    // One round of "Verificar Atualização" over four addresses, for each way it can end.
    void updateRound_data() {
        QTest::addColumn<QList<QByteArray>>("bodies");
        QTest::addColumn<int>("requests");
        QTest::addColumn<QString>("title"); // empty: no box at all
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("opened");
        const QByteArray own = versionDocument("1.6.2");
        const QByteArray entity =
            "<?xml version=\"1.0\"?><!DOCTYPE v [<!ENTITY a \"aaaaaaaa\">]><v><linux><version "
            "value=\"&a;\" src=\"http://d/e\"/></linux></v>";
        QTest::addRow("first address fails")
            << QList<QByteArray>{"ERROR", versionDocument("1.7.0"), own, own} << 1 << kExport
            << kConnection << "";
        QTest::addRow("all current")
            << QList<QByteArray>{own, own, own, own} << 4 << kUpdate << kCurrent << "";
        QTest::addRow("1.10.0 over 1.9.9")
            << QList<QByteArray>{versionDocument("1.9.9", "http://d/a"),
                                 versionDocument("1.10.0", "http://d/b"), own, own}
            << 4 << kUpdate << offer("1100") << "http://d/b";
        QTest::addRow("no linux element")
            << QList<QByteArray>{"<versions><windows><version value=\"9.0\"/></windows></versions>",
                                 "<versions/>", "<versions><linux/></versions>", own}
            << 4 << kUpdate << kCurrent << "";
        QTest::addRow("not XML halfway stops without a word")
            << QList<QByteArray>{versionDocument("1.7.0"), "isto não é XML", own, own} << 2
            << QString() << QString() << "";
        QTest::addRow("entities last")
            << QList<QByteArray>{versionDocument("1.7.0", "http://d/a"), own, own, entity} << 4
            << kUpdate << offer("170") << "http://d/a";
        QTest::addRow("50 MB last")
            << QList<QByteArray>{versionDocument("1.7.0", "http://d/a"), own, own, "HUGE"} << 4
            << kUpdate << offer("170") << "http://d/a";
        QTest::addRow("download address not a web page")
            << QList<QByteArray>{versionDocument("1.7.0", "file:///etc/passwd"), own, own, own} << 4
            << kUpdate << offer("170") << "";
    }
    void updateRound() {
        QFETCH(QList<QByteArray>, bodies);
        QFETCH(int, requests);
        QFETCH(QString, title);
        QFETCH(QString, text);
        QFETCH(QString, opened);
        HttpResponder server;
        routeFour(server, bodies);
        UrlCatcher urls;
        ModalAnswerer answerer;
        if (!title.isEmpty())
            answerer.answer(text.startsWith(QString::fromUtf8("Existe")) ? "Sim" : "OK");

        QWidget window;
        UpdateCheck check(UpdateCheck::Mode::onDemand, &window);
        QSignalSpy answered(check.findChild<QNetworkAccessManager*>(),
                            &QNetworkAccessManager::finished);
        check.settingVerifyUpdate();
        QTRY_COMPARE_WITH_TIMEOUT(answered.count(), requests, 60000);
        // Whatever ended the round, no further address is being asked.
        const auto replies = check.findChildren<QNetworkReply*>();
        for (const QNetworkReply* reply : replies)
            QVERIFY(reply->isFinished());
        QCOMPARE(server.requests().size(), requests);
        QCOMPARE(answerer.pending(), 0);
        QCOMPARE(answerer.seen().size(), title.isEmpty() ? 0 : 1);
        if (!title.isEmpty()) {
            QCOMPARE(answerer.last().title, title);
            QCOMPARE(answerer.last().text, text);
        }
        QCOMPARE(urls.opened(), opened.isEmpty() ? QList<QUrl>() : QList<QUrl>{QUrl(opened)});
    }

    // The start-up check through the real window: it speaks only of a newer version, and shows
    // it without its points once another element was compared with it.
    void startUpCheck_data() {
        QTest::addColumn<QList<QByteArray>>("bodies");
        QTest::addColumn<int>("requests");
        QTest::addColumn<QString>("text"); // empty: no box
        const QByteArray own = versionDocument("1.6.2");
        QTest::addRow("newer, never compared")
            << QList<QByteArray>{versionDocument("1.7.0"), "<v/>", "<v><linux/></v>", "<v/>"} << 4
            << offer("1.7.0");
        QTest::addRow("error first: gives up")
            << QList<QByteArray>{"ERROR", own, own, own} << 1 << QString();
    }
    void startUpCheck() {
        QFETCH(QList<QByteArray>, bodies);
        QFETCH(int, requests);
        QFETCH(QString, text);
        HttpResponder server;
        routeFour(server, bodies);
        UrlCatcher urls;
        ModalAnswerer answerer;
        if (!text.isEmpty())
            answerer.answer("Não");
        WindowBench bench;
        auto* check =
            bench.window()->findChild<UpdateCheck*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(check);
        QVERIFY(server.waitForRequests(requests));
        QTRY_VERIFY_WITH_TIMEOUT(answerer.pending() == 0, 30000);
        const auto allFinished = [check] {
            const auto replies = check->findChildren<QNetworkReply*>();
            return std::all_of(replies.begin(), replies.end(),
                               [](const QNetworkReply* reply) { return reply->isFinished(); });
        };
        QTRY_VERIFY(allFinished());
        QCOMPARE(server.requests().size(), requests);
        QCOMPARE(answerer.seen().size(), text.isEmpty() ? 0 : 1);
        if (!text.isEmpty())
            QCOMPARE(answerer.last().text, text);
        QVERIFY(urls.opened().isEmpty());
    }

    // The form: refused while incomplete, then one GET with "to", "from" and "message" in that
    // order, "&" sent as "E"; the answer is told after the form closed.
    void contactForm_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::addRow("sent") << 200 << QString::fromUtf8("Envio de Formulário")
                              << QString::fromUtf8("<h2>Sua mensagem foi enviada.</h2><p>Em "
                                                   "breve a equipe do Selvorá entrará em contato.");
        QTest::addRow("server down") << 500 << QString::fromUtf8("Envio de Formulário")
                                     << QString::fromUtf8("<h2>Servidor fora do ar.</h2><p>Tente "
                                                          "enviar o formulário em outro momento.");
    }
    void contactForm() {
        QFETCH(int, status);
        QFETCH(QString, title);
        QFETCH(QString, text);
        HttpResponder server;
        server.route("/webapp/contact.php", HttpResponder::status(status, "ok"));
        qputenv("SELVORA_CONTACT_URL", server.url("/webapp/contact.php").toUtf8());
        qputenv("SELVORA_CONTACT_TO", "equipe@selvora.example");
        QWidget window;
        ContactForm form(&window);
        form.openContactForm();
        QDialog* dialog = nullptr;
        for (QWidget* top : QApplication::topLevelWidgets()) {
            if (top->isVisible() &&
                top->windowTitle() == QString::fromUtf8("Formulário de Contato"))
                dialog = qobject_cast<QDialog*>(top);
        }
        QVERIFY(dialog);
        QPointer<QDialog> guard(dialog);
        const QList<QLineEdit*> edits = dialog->findChildren<QLineEdit*>();
        auto* send = dialog->findChildren<QPushButton*>().last();

        edits.at(0)->setText(QString::fromUtf8("Maria"));
        ModalAnswerer answerer;
        answerer.answer("OK");
        send->click();
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.last().text, QString::fromUtf8("Por favor, preencha todos os campos do "
                                                         "formulário antes de enviar."));
        QVERIFY(guard && dialog->isVisible());

        edits.at(1)->setText("maria@escola.example");
        dialog->findChild<QTextEdit*>()->setPlainText(QString::fromUtf8("Olá & até #1 + 2% = ?"));
        answerer.answer("OK");
        send->click();
        QTRY_VERIFY(!guard);
        QVERIFY(answerer.waitAllAnswered(30000));
        QCOMPARE(answerer.last().title, title);
        QCOMPARE(answerer.last().text, text);

        QCOMPARE(server.requests().size(), 1);
        const QUrl target(QString::fromLatin1(server.requests().first().target));
        QCOMPARE(target.path(), QString("/webapp/contact.php"));
        const auto query = QUrlQuery(target).queryItems(QUrl::FullyDecoded);
        const QList<QPair<QString, QString>> expected = {
            {"to", "equipe@selvora.example"},
            {"from", "maria@escola.example"},
            {"message", QString::fromUtf8("Maria.\n\nOlá E até #1 + 2% = ?\n\nEnviado pela "
                                          "ferramenta Selvorá.")}};
        QCOMPARE(query, expected);
    }

    // Where the deployment names no host, the menu's check and the contact form say so plainly
    // and nothing is asked of the network.
    void servicesNotConfigured() {
        QMainWindow window;
        Menu menu(doc, &window);
        ModalAnswerer answerer;
        answerer.answer("OK");
        answerer.answer("OK");
        menu.settingVerifyUpdate();
        menu.openContactForm();
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.seen().size(), 2);
        QCOMPARE(answerer.seen().at(0).title, kUpdate);
        QCOMPARE(answerer.seen().at(0).text,
                 QString::fromUtf8("A verificação de atualizações não está configurada nesta "
                                   "instalação."));
        QCOMPARE(answerer.seen().at(1).title, QString::fromUtf8("Formulário de Contato"));
        QCOMPARE(answerer.seen().at(1).text,
                 QString::fromUtf8("O envio de mensagens não está configurado nesta instalação."));
    }

    // The repository dialog keeps itself open on an empty address, then stores the address and
    // offers to publish; the About box tells the version.
    void repositoryAndAbout() {
        QMainWindow window;
        Menu menu(doc, &window);
        QPointer<QWidget> repository;
        bool keptOpen = false;
        ModalAnswerer answerer;
        answerer.answerWith([&repository](QWidget* dialog) {
            repository = dialog;
            ModalAnswerer::pressButton(dialog, "&Salvar");
        });
        answerer.answerWith([&repository, &keptOpen](QWidget* warning) {
            ModalAnswerer::pressButton(warning, "OK");
            QTimer::singleShot(0, [&repository, &keptOpen] {
                keptOpen = repository && repository->isVisible();
                if (!repository)
                    return;
                repository->findChild<QLineEdit*>()->setText("http://repositorio.example/oa");
                ModalAnswerer::pressButton(repository, "&Salvar");
            });
        });
        answerer.answer("Não");
        menu.configRepository();
        QVERIFY(answerer.waitAllAnswered());
        QVERIFY(keptOpen);
        QCOMPARE(doc->getUrlRepository(), QString("http://repositorio.example/oa"));
        QCOMPARE(answerer.seen().size(), 3);
        QCOMPARE(answerer.seen().at(1).text,
                 QString::fromUtf8("<h2>Alerta.</h2><p>Por favor, preencha corretamente o "
                                   "endereço do repositório."));
        QCOMPARE(answerer.seen().at(2).title, QString("Publicar"));
        QCOMPARE(answerer.seen().at(2).text, QString("Deseja publicar o projeto \"\" agora?\n"));

        answerer.answer("OK");
        menu.about();
        QVERIFY(answerer.waitAllAnswered());
        QCOMPARE(answerer.last().title, QString::fromUtf8("Sobre Selvorá"));
        QVERIFY(answerer.last().text.startsWith(QString::fromUtf8("<h2>Selvorá 1.6.2</h2>")));
    }
};

SELVORA_TEST_MAIN(TestServices)
#include "tst_services.moc"
