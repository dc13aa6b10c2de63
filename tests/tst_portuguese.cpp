// Qt's own texts (file dialog, wizard, message box, text-field menu) read in Brazilian
// Portuguese once the program's translations are installed.
#include "app/Translations.h"
#include "support/TestMain.h"

#include <QAbstractButton>
#include <QAction>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QWizard>

using selvora::Translations;

namespace {

// Texts as the user reads them: mnemonics and menu shortcuts gone, no surrounding blanks.
QString plain(QString text) {
    text = text.section(QLatin1Char('\t'), 0, 0);
    text.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    text.remove(QLatin1Char('&'));
    text.replace(QStringLiteral("\x01"), QStringLiteral("&"));
    return text.trimmed();
}

// Every text a widget shows: title, labels, buttons, tool tips, actions, column headers.
QStringList textsOf(QWidget* root) {
    QStringList texts;
    const auto add = [&texts](const QString& text) {
        if (!plain(text).isEmpty())
            texts << plain(text);
    };
    QList<QWidget*> widgets = root->findChildren<QWidget*>();
    widgets.prepend(root);
    for (QWidget* widget : qAsConst(widgets)) {
        add(widget->windowTitle());
        add(widget->toolTip());
        if (auto* button = qobject_cast<QAbstractButton*>(widget))
            add(button->text());
        if (auto* label = qobject_cast<QLabel*>(widget))
            add(label->text());
        const QList<QAction*> actions = widget->actions();
        for (QAction* action : actions)
            add(action->text());
        if (auto* header = qobject_cast<QHeaderView*>(widget); header && header->model())
            for (int i = 0; i < header->count(); ++i)
                add(header->model()->headerData(i, header->orientation()).toString());
    }
    return texts;
}

void verifyPortuguese(const QStringList& texts, const QStringList& portuguese) {
    for (const QString& word : portuguese)
        QVERIFY2(texts.contains(word), qPrintable("No \"" + word + "\" in: " + texts.join(" | ")));
}

} // namespace

class TestPortuguese : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        const QStringList loaded = Translations::install(qApp);
        QCOMPARE(loaded, Translations::catalogueNames());
    }

    void fileDialog() {
        QFileDialog dialog(nullptr, QString(), QDir::tempPath());
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        verifyPortuguese(textsOf(&dialog), {"Cancelar", "Abrir", "Procurar em:", "Nome do arquivo:",
                                            "Arquivos do tipo:", "Pasta superior",
                                            "Criar nova pasta", "Nome", "Tamanho"});
    }

    void wizard() {
        QWizard wizard;
        wizard.setWizardStyle(QWizard::ClassicStyle);
        wizard.addPage(new QWizardPage);
        wizard.addPage(new QWizardPage);
        wizard.show();
        QVERIFY(QTest::qWaitForWindowExposed(&wizard));
        QStringList texts = textsOf(&wizard);
        wizard.next();
        QTRY_VERIFY(wizard.button(QWizard::FinishButton)->isVisible());
        texts << textsOf(&wizard);
        verifyPortuguese(texts, {"Próximo >", "< Voltar", "Concluir", "Cancelar"});
    }

    void messageBox() {
        QMessageBox box(QMessageBox::Warning, "Selvorá", "?",
                        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel | QMessageBox::Ok |
                            QMessageBox::Save | QMessageBox::Discard);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        // "OK" reads the same in both languages.
        verifyPortuguese(textsOf(&box), {"Sim", "Não", "Cancelar", "Salvar", "Descartar"});
    }

    void lineEditMenu() {
        QLineEdit edit("texto");
        QScopedPointer<QMenu> menu(edit.createStandardContextMenu());
        verifyPortuguese(textsOf(menu.data()), {"Desfazer", "Refazer", "Recortar", "Copiar",
                                                "Colar", "Excluir", "Selecionar tudo"});
    }
};

SELVORA_TEST_MAIN(TestPortuguese)
#include "tst_portuguese.moc"
