#include "journeys/JourneyBench.h"

// A teacher's first lesson, made through the window only: menus, tool bar, file dialogs, the
// mouse on the canvas, the time strip and the layer list. The model is only read, to check.
class TestJourneys : public JourneyBench {
    Q_OBJECT
private slots:
    void initTestCase() {
        QVERIFY(files.isValid());
        // Qt's own dialogs in Portuguese, as the program starts them.
        Translations::install(qApp);
        picturePath = MediaFixtures::makeImage(files.path(), "mapa.png", QSize(240, 180),
                                               QColor(40, 120, 200));
        bench.reset(new WindowBench());
        QVERIFY(bench->window()->isVisible());
    }
    void cleanupTestCase() { bench.reset(); }

    void newProjectWithAScene() {
        step("Novo projeto");
        STEP_DO(pickMenu("Arquivo", "Novo"));
        STEP_VERIFY(bench->document()->getCountScenes() == 1, "the new project has no scene");
        step("Tempo total");
        STEP_DO(typeTotal(kTotal));
        STEP_VERIFY(strip()->maximum() == kTotal,
                    QString("the strip ends at %1").arg(strip()->maximum()));
        STEP_DO(seek(0)); // a seek pauses the scene, so that its items can be edited
        STEP_DO(shot("01-janela"));
    }

    void insertEveryKindOfMedia() {
        step("Inserir Vídeo");
        {
            ModalAnswerer answerer;
            answerer.answerFileDialog(MediaFixtures::videoPath());
            STEP_DO(pressTool("Inserir Vídeo"));
            STEP_DO(answerFile(answerer, "Escolha um arquivo"));
        }
        Media* video = scene()->getMainVideo();
        STEP_VERIFY(video, "the scene has no main video");
        STEP_TRY(item(video) && item(video)->isVisible(), "the video is not on the canvas");
        STEP_VERIFY(!toolButton("Inserir Vídeo")->isEnabled(),
                    "a second video can still be inserted");
        // The frame is edited once the player has the clip, as a user sees it come.
        STEP_TRY(canvas()->mediaPlayer() &&
                     canvas()->mediaPlayer()->mediaStatus() >= QMediaPlayer::LoadedMedia,
                 "the clip never loaded");
        const QString videoLabel = video->getLabel();
        // Half the canvas, in the lower right corner.
        STEP_DO(handle(videoLabel, QPointF(-360, -202), true));
        STEP_DO(moveTo(videoLabel, QPointF(340, 180)));

        step("Inserir Imagem");
        {
            ModalAnswerer answerer;
            answerer.answerFileDialog(picturePath);
            STEP_DO(pickMenu("Opções", "Inserir Imagem"));
            STEP_DO(answerFile(answerer, "Escolha um arquivo"));
        }
        STEP_VERIFY(scene()->getAllMedias().size() == 2,
                    QString("%1 media after the picture").arg(scene()->getAllMedias().size()));
        STEP_DO(moveTo(scene()->getMedia(-1)->getLabel(), QPointF(20, 20)));

        step("Inserir Texto");
        STEP_DO(pressTool("Inserir Texto"));
        Media* words = scene()->getMedia(-1);
        auto* wording = dynamic_cast<spatialview::TextItem*>(item(words));
        STEP_VERIFY(wording, "no text item on the canvas");
        STEP_TRY(wording->getText() == "Duplo clique para editar",
                 "the new text shows '" + wording->getText() + "'");
        step("Digitar o texto");
        ViewInput::doubleClick(view(), placed(wording).center());
        QTextEdit* box = wording->getTextEdit()->textBox();
        STEP_TRY(wording->getTextEdit()->isOpened() && box->isVisible(),
                 "a double click opened no editor");
        // No window manager hands the editor the keyboard: done here as one would.
        QApplication::setActiveWindow(box->window());
        box->setFocus();
        STEP_TRY(box->hasFocus(), "the editor never took the keyboard");
        WindowBench::type(kWording, box);
        STEP_DO(shot("03-texto"));
        view()->setFocus();
        ViewInput::click(view(), QPointF(650, 60)); // the empty canvas ends the edit
        STEP_TRY(!wording->getTextEdit()->isVisible(), "the editor stayed open");
        QApplication::setActiveWindow(bench->window());
        STEP_VERIFY(words->getWording() == kWording,
                    "the model holds '" + words->getWording() + "'");
        STEP_DO(moveTo(words->getLabel(), QPointF(170, 20)));

        const QList<QPair<QString, QPointF>> shapes = {
            {QString::fromUtf8("Retângulo"), QPointF(20, 250)},
            {"Elipse", QPointF(160, 120)},
            {"Estrela de 5 pontas", QPointF(440, 20)}};
        for (const auto& shape : shapes) {
            step("Inserir Formas: " + shape.first);
            QCursor::setPos(view()->mapToGlobal(QPoint(60, 60)));
            STEP_DO(pressTool("Inserir Formas"));
            STEP_TRY(palette() != nullptr, "the shape palette did not open");
            if (shape.first == "Elipse")
                STEP_DO(shot("04-formas"));
            QWidget* button = nullptr;
            for (QToolBar* row : palette()->findChildren<QToolBar*>())
                for (QAction* action : row->actions())
                    if (action->text() == shape.first)
                        button = row->widgetForAction(action);
            STEP_VERIFY(button, "no " + shape.first + " in the palette");
            const int count = scene()->getAllMedias().size();
            QTest::mouseClick(button, Qt::LeftButton);
            STEP_TRY(!palette(), "the palette stayed open");
            STEP_VERIFY(scene()->getAllMedias().size() == count + 1, "no shape was inserted");
            STEP_DO(moveTo(scene()->getMedia(-1)->getLabel(), shape.second));
        }
        STEP_DO(shot("02-midias"));
    }

    // The same items, changed at later seconds: the canvas is a function of time.
    void arrangeAtLaterSeconds() {
        step("Arrumar no tempo");
        const QList<Media*> all = scene()->getAllMediasOrderLayer();
        STEP_VERIFY(all.size() == 6, QString("%1 media in the scene").arg(all.size()));
        QMap<Definitions::kMediaType, QStringList> byType;
        for (Media* m : all)
            byType[m->getType()] << m->getLabel();
        const QString video = byType[Definitions::kMediaType::video].value(0);
        const QString picture = byType[Definitions::kMediaType::image].value(0);
        const QString words = byType[Definitions::kMediaType::text].value(0);
        QString rectangle;
        for (Media* m : all)
            if (m->getType() == Definitions::kMediaType::shape && m->getGeometry() == "0")
                rectangle = m->getLabel();

        step("Segundo 5: mover a imagem, redimensionar o retângulo");
        STEP_DO(seek(5));
        const QRectF pictureAtZero = pixels(media(picture));
        STEP_DO(handle(picture, QPointF(0, 100), false));
        STEP_DO(handle(rectangle, QPointF(60, 20), true));
        step("Segundo 10: mover o texto, redimensionar o vídeo");
        STEP_DO(seek(10));
        STEP_DO(handle(words, QPointF(250, 320), false));
        STEP_DO(handle(video, QPointF(-100, -60), true));
        step("Segundo 3: antes das mudanças");
        STEP_DO(seek(3));
        STEP_VERIFY(near(placed(item(media(picture))), pictureAtZero),
                    "the picture moved before second 5: " + text(placed(item(media(picture)))));

        step("Camadas: arrastar o vídeo para o topo no segundo 12");
        STEP_DO(seek(12));
        const QStringList rows = layerRows();
        STEP_VERIFY(rows.size() == 6 && rows.last() == video,
                    "the layer rows are " + rows.join(", "));
        // The bottom row is pressed and carried to the top one. Qt hands a drop only to the
        // target of a live drag, so the list gets the drag's own events, with its own payload.
        QListWidgetItem* bottom = layers()->item(layers()->count() - 1);
        QListWidgetItem* top = layers()->item(0);
        QTest::mouseClick(layers()->viewport(), Qt::LeftButton, {},
                          layers()->visualItemRect(bottom).center());
        const QPoint target(layers()->visualItemRect(top).center().x(),
                            layers()->visualItemRect(top).top() + 2);
        std::unique_ptr<QMimeData> payload(
            layers()->dragData(static_cast<SceneMediaItem*>(bottom)));
        QDragEnterEvent enter(target, Qt::MoveAction, payload.get(), Qt::LeftButton, {});
        QApplication::sendEvent(layers()->viewport(), &enter);
        QDragMoveEvent move(target, Qt::MoveAction, payload.get(), Qt::LeftButton, {});
        QApplication::sendEvent(layers()->viewport(), &move);
        QDropEvent drop(target, Qt::MoveAction, payload.get(), Qt::LeftButton, {});
        QApplication::sendEvent(layers()->viewport(), &drop);
        STEP_VERIFY(drop.isAccepted(), "the layer list refused the drop");
        STEP_VERIFY(layerRows().value(0) == video, "the layer rows are " + layerRows().join(", "));
        STEP_DO(shot("05-camadas"));

        step("Conferir a cena");
        STEP_DO(seek(10));
        STEP_VERIFY(front() != video, "at 10 the video is already in front");
        STEP_DO(seek(12));
        STEP_VERIFY(front() == video, "at 12 the front item is " + front());
        before = looks();
    }

    void saveAndOpenAgain() {
        step("Salvar");
        projectPath = QDir(files.path()).filePath("aula");
        {
            ModalAnswerer answerer;
            answerer.answerWith([this](QWidget* widget) {
                auto* dialog = qobject_cast<QFileDialog*>(widget);
                if (!dialog)
                    return;
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText(projectPath);
                shot("06-salvar");
                QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
            });
            STEP_DO(pickMenu("Arquivo", "Salvar"));
            STEP_DO(answerFile(answerer, "Salvar Projeto como"));
        }
        const QString file = projectPath + "/aula.svproj";
        STEP_TRY(QFileInfo::exists(file) && !bench->document()->isModified(),
                 "the project was not saved as " + file);
        STEP_DO(waitIdle("save"));
        STEP_VERIFY(bench->window()->windowTitle().endsWith("aula.svproj"),
                    "the title is " + bench->window()->windowTitle());

        step("Fechar (Novo)");
        {
            ModalAnswerer answerer; // nothing to ask: the project is saved
            STEP_DO(pickMenu("Arquivo", "Novo"));
            STEP_VERIFY(answerer.seen().isEmpty(), "Novo asked: " + answerer.last().text);
        }
        STEP_VERIFY(scene()->getAllMedias().isEmpty(), "the new project is not empty");

        step("Abrir");
        {
            ModalAnswerer answerer;
            answerer.answerFileDialog(file);
            STEP_DO(pickMenu("Arquivo", "Abrir"));
            STEP_DO(answerFile(answerer, "Escolha o projeto"));
        }
        STEP_TRY(scene() && scene()->getAllMedias().size() == 6, "the project did not open");
        STEP_DO(sameAsBefore());
        bool kept = false;
        for (const Media* m : scene()->getAllMedias())
            kept = kept || m->getWording() == kWording;
        STEP_VERIFY(kept, "the typed text was lost");

        step("Novo, e abrir pela lista de recentes");
        STEP_DO(pickMenu("Arquivo", "Novo"));
        STEP_VERIFY(scene()->getAllMedias().isEmpty(), "the new project is not empty");
        STEP_DO(pickMenu("Arquivo", "1 aula.svproj", "07-recentes"));
        STEP_TRY(scene() && scene()->getAllMedias().size() == 6,
                 "the project did not open from the recent list");
        STEP_DO(seek(12));
        STEP_DO(shot("08-reaberto"));
    }
    // Three scenes linked by the canvas's context menu: by time, by a click and by a key;
    // played through, then taken back to nothing by the history and brought back again.
    void scenesLinkedByTimeClickAndKey() {
        step("Novo projeto para os elos");
        {
            ModalAnswerer answerer;
            answerer.answer(QString::fromUtf8("Não")); // the reopened lesson was not changed
            STEP_DO(pickMenu("Arquivo", "Novo"));
        }
        const QString empty = lesson();
        STEP_VERIFY(scenes().size() == 1 && scene()->getAllMedias().isEmpty(),
                    "the new project is " + empty);
        step("Adicionar Cena");
        for (int i = 0; i < 2; ++i)
            QTest::mouseClick(bench->panel<slideView::SlideView>()->getButtons().at(0),
                              Qt::LeftButton);
        STEP_TRY(scenes().size() == 3, QString("%1 scenes").arg(scenes().size()));
        const QList<Scene*> three = scenes();

        // Each scene: its time and a text to click; a link for each.
        QList<Media*> texts;
        for (int row = 0; row < 3; ++row) {
            step(QString("Cena %1: tempo e texto").arg(row + 1));
            STEP_DO(pickScene(row));
            STEP_DO(typeTotal(10));
            STEP_DO(seek(0));
            Media* words = insertText();
            STEP_VERIFY(words, "no text inserted");
            texts << words;
        }

        step(QString::fromUtf8("Cena 1: elo automático para a Cena 2 aos 00:00:01"));
        STEP_DO(pickScene(0));
        STEP_DO(linkDialog(nullptr, QString::fromUtf8("Criar Elo Automático entre Cenas"),
                           QString::fromUtf8("Elo automático da cena."), {"00:00:01", "", ""},
                           {three[1]->getLabel()}, "09-elo-automatico"));

        step(QString::fromUtf8("Cena 2: elo interativo (clique) para a Cena 1 no instante 3"));
        STEP_DO(pickScene(1));
        STEP_DO(linkDialog(texts[1], QString::fromUtf8("Criar Elo Interativo entre Cenas"),
                           QString::fromUtf8("Elo interativo da mídia."), {"00:00:03"},
                           {three[0]->getLabel()}, "10-elo-interativo"));

        step(QString::fromUtf8("Cena 1: elo pela tecla Vermelho para a Cena 3"));
        STEP_DO(pickScene(0));
        STEP_DO(linkDialog(texts[0], QString::fromUtf8("Criar Elo Interativo entre Cenas"),
                           QString::fromUtf8("Elo interativo da mídia."), {},
                           {three[2]->getLabel(), "Vermelho"}));
        const QString full = lesson();

        step(QString::fromUtf8("Tocar: o elo automático leva à Cena 2"));
        STEP_DO(seek(0));
        QTest::mouseClick(playButton(), Qt::LeftButton);
        STEP_TRY(
            scene() == three[1] && playing(),
            QString("playing %1 instead of %2").arg(scene()->getLabel(), three[1]->getLabel()));
        step(QString::fromUtf8("Tocar: um clique no texto volta à Cena 1 no segundo 3"));
        STEP_TRY(item(texts[1]) && item(texts[1])->isVisible(), "the text is not shown");
        ViewInput::click(view(), placed(item(texts[1])).center());
        STEP_TRY(
            scene() == three[0] && playing(),
            QString("playing %1 instead of %2").arg(scene()->getLabel(), three[0]->getLabel()));
        STEP_VERIFY(scene()->getCurrentTime() >= 3,
                    QString("the scene came at second %1").arg(scene()->getCurrentTime()));
        step(QString::fromUtf8("Tocar: a tecla Vermelho leva à Cena 3"));
        WindowBench::key(Qt::Key_1, Qt::NoModifier, view());
        STEP_TRY(
            scene() == three[2] && playing(),
            QString("playing %1 instead of %2").arg(scene()->getLabel(), three[2]->getLabel()));
        QTest::mouseClick(playButton(), Qt::LeftButton);
        STEP_TRY(!playing(), "the scene did not pause");
        STEP_VERIFY(lesson() == full, "playing changed the lesson: " + lesson());

        // Eleven records in all, well within the 25 the history keeps.
        step("Desfazer tudo");
        const int undone = pressUntil("Desfazer", empty);
        STEP_VERIFY(undone > 0,
                    QString("25 undos left the lesson as %1, not %2").arg(lesson(), empty));
        QTest::mouseClick(toolButton("Desfazer"), Qt::LeftButton); // nothing more to undo
        STEP_VERIFY(lesson() == empty, "an undo too many changed the lesson: " + lesson());
        step("Refazer tudo");
        const int redone = pressUntil("Refazer", full);
        STEP_VERIFY(redone == undone, QString("%1 redos for %2 undos, the lesson is %3, not %4")
                                          .arg(redone)
                                          .arg(undone)
                                          .arg(lesson(), full));
    }
    // A layout from the scene row's palette, filled with files dropped on its regions; a quiz
    // made by its wizard after it; played with clicks on the answers to the quiz's end.
    void layoutFilledByDropsAndAQuiz() {
        step("Novo projeto para o layout e o quiz");
        {
            ModalAnswerer answerer;
            answerer.answer(QString::fromUtf8("Não")); // the linked scenes are not kept
            STEP_DO(pickMenu("Arquivo", "Novo"));
        }
        STEP_VERIFY(scenes().size() == 1 && scene()->getAllMedias().isEmpty(),
                    "the new project is " + lesson());
        STEP_DO(typeTotal(10));
        STEP_DO(seek(0));

        step("Layout da paleta da cena");
        slideView::SlideListTreeRoot* row = sceneRows()->rootOf(scene()->getId());
        STEP_VERIFY(row, "the scene has no row");
        QTest::mouseDClick(row->getPicture(), Qt::LeftButton);
        QMenu* layouts = row->getLayoutMenu();
        STEP_TRY(layouts->isVisible(), "a double click on the scene's picture opened no palette");
        QToolButton* seventh = nullptr;
        for (QToolBar* bar : layouts->findChildren<QToolBar*>())
            if (auto* found = qobject_cast<QToolButton*>(
                    bar->widgetForAction(row->getLayoutActions().value(6))))
                seventh = found;
        STEP_VERIFY(seventh, "no seventh layout in the palette");
        STEP_DO(shot("11-paleta-layouts"));
        QTest::mouseClick(seventh, Qt::LeftButton);
        STEP_TRY(!layouts->isVisible(), "the palette stayed open");
        STEP_VERIFY(scene()->getAllTemplates().size() == 1,
                    QString("%1 layouts in the scene").arg(scene()->getAllTemplates().size()));
        // The first layout offers its wizard beside it: closed, as the user would.
        if (QWidget* wizard = row->getTemplateWizard())
            wizard->close();
        QApplication::setActiveWindow(bench->window());
        const document::Template* layout =
            bench->document()->getTemplate(scene()->getAllTemplates().first());
        const QList<document::Region*> regions = layout->getAllRegions();
        STEP_VERIFY(regions.size() == 3, QString("the layout has %1 regions").arg(regions.size()));
        for (const document::Region* region : regions) {
            auto* placeholder = dynamic_cast<spatialview::RegionItem*>(canvas()->getItem(
                SpatialView::regionKey(region->getId(), region->getTemplateId())));
            STEP_VERIFY(placeholder && placeholder->isVisible(),
                        QString("the region %1 shows no placeholder").arg(region->getOrder()));
        }
        STEP_DO(shot("12-layout"));

        step(QString::fromUtf8("Soltar arquivos nas regiões"));
        const QList<QColor> colours = {QColor(200, 60, 60), QColor(60, 160, 60),
                                       QColor(60, 60, 200)};
        for (int i = 0; i < regions.size(); ++i) {
            const document::Region* region = regions[i];
            const QString where = QString("region %1: ").arg(region->getOrder());
            const QString file = MediaFixtures::makeImage(
                files.path(), QString("regiao%1.png").arg(i), QSize(160, 120), colours[i]);
            STEP_VERIFY(dropFiles({file}, pixels(region).center()), where + "the drop was refused");
            const Media* dropped = scene()->getMedia(region->getMediaId());
            STEP_VERIFY(dropped && dropped->getRegionId() == QString::number(region->getId()),
                        where + "the region holds no media");
            STEP_TRY(item(dropped) && item(dropped)->isVisible(),
                     where + "the media is not on the canvas");
            STEP_VERIFY(near(placed(item(dropped)), pixels(region)),
                        where + "the media shows at " + text(placed(item(dropped))));
        }
        STEP_DO(shot("13-layout-preenchido"));

        step("Quiz: Inserir Template");
        QList<QPointer<wizards::Quiz>> before;
        for (wizards::Quiz* each : bench->window()->findChildren<wizards::Quiz*>())
            before << each;
        STEP_DO(pickMenu(QString::fromUtf8("Opções"), "Inserir Template"));
        QPointer<wizards::Quiz> quiz;
        STEP_TRY(
            [&] {
                for (wizards::Quiz* each : bench->window()->findChildren<wizards::Quiz*>())
                    if (!before.contains(each) && each->isVisible())
                        quiz = each;
                return bool(quiz);
            }(),
            "the quiz wizard did not open");
        QApplication::setActiveWindow(quiz);
        step(QString::fromUtf8("Quiz: Configurações"));
        STEP_VERIFY(quiz->currentId() == wizards::Quiz::configurationPage,
                    QString("the wizard opens on page %1").arg(quiz->currentId()));
        for (QComboBox* box : {quiz->getQuestionsBox(), quiz->getOptionsBox()}) {
            QTest::mouseClick(box, Qt::LeftButton);
            box->setCurrentIndex(box->findText("2"));
            if (QWidget* popup = QApplication::activePopupWidget())
                popup->close();
        }
        QTest::keyClick(quiz->getTimeEdit(), Qt::Key_Home);
        QTest::keyClicks(quiz->getTimeEdit(), "000030");
        STEP_DO(clickWizard(quiz, QWizard::NextButton, wizards::Quiz::questionsPage));

        step(QString::fromUtf8("Quiz: Questões"));
        const QList<wizards::QuizView*> questions = quiz->getQuestionViews();
        auto* tabs = quiz->findChild<QTabWidget*>();
        STEP_VERIFY(questions.size() == 2 && tabs, QString("%1 questions").arg(questions.size()));
        const QStringList asked = {QString::fromUtf8("Quanto é 2 + 2?"),
                                   QString::fromUtf8("Qual é a capital do Brasil?")};
        const QList<QStringList> options = {{"3", "4"}, {QString::fromUtf8("Brasília"), "Rio"}};
        const QList<int> right = {2, 1};
        for (int q = 0; q < 2; ++q) {
            QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {},
                              tabs->tabBar()->tabRect(q).center());
            STEP_TRY(questions[q]->isVisible(), QString("the tab of question %1 hid").arg(q + 1));
            WindowBench::type(asked[q], questions[q]->getQuestionEdit());
            const QList<wizards::QuizItem*> items = questions[q]->getItems();
            STEP_VERIFY(items.size() == 2,
                        QString("question %1 has %2 answers").arg(q + 1).arg(items.size()));
            for (int a = 0; a < 2; ++a) {
                items[a]->getTextEdit()->selectAll();
                WindowBench::type(options[q][a], items[a]->getTextEdit());
            }
            QTest::mouseClick(items[right[q] - 1]->getRightButton(), Qt::LeftButton);
        }
        STEP_DO(shot("14-quiz"));
        STEP_DO(clickWizard(quiz, QWizard::NextButton, wizards::Quiz::rightPage));
        step(QString::fromUtf8("Quiz: imagem de acerto"));
        STEP_DO(choosePicture(
            quiz, quiz->getRightScene(),
            MediaFixtures::makeImage(files.path(), "certo.png", QSize(200, 100), Qt::green)));
        STEP_DO(clickWizard(quiz, QWizard::NextButton, wizards::Quiz::wrongPage));
        step(QString::fromUtf8("Quiz: imagem de erro"));
        STEP_DO(choosePicture(
            quiz, quiz->getWrongScene(),
            MediaFixtures::makeImage(files.path(), "errado.png", QSize(200, 100), Qt::red)));
        STEP_DO(clickWizard(quiz, QWizard::FinishButton, -1));
        STEP_TRY(!quiz || !quiz->isVisible(), "the wizard stayed open");
        QApplication::setActiveWindow(bench->window());

        step(QString::fromUtf8("Quiz: as cenas feitas"));
        Scene* first = labelled("Pergunta 1");
        Scene* second = labelled("Pergunta 2");
        Scene* feedback = labelled("Feedback");
        STEP_VERIFY(scenes().size() == 5 && first && second && feedback,
                    "the scenes are " + lesson());
        Scene* final = scenes().last();
        STEP_VERIFY(final != feedback && final != second, "the scenes are " + lesson());
        for (int q = 0; q < 2; ++q) {
            Scene* question = q ? second : first;
            const Media* asking = nullptr;
            for (Media* m : question->getAllMedias())
                if (m->getLabel() == QString::fromUtf8("Questão %1").arg(q + 1))
                    asking = m;
            STEP_VERIFY(asking && asking->getWording() == asked[q],
                        QString("question %1 reads '%2'")
                            .arg(q + 1)
                            .arg(asking ? asking->getWording() : QString()));
        }

        step(QString::fromUtf8("Cena 1: elo automático para a Pergunta 1 aos 00:00:02"));
        STEP_DO(pickScene(0));
        STEP_DO(linkDialog(nullptr, QString::fromUtf8("Criar Elo Automático entre Cenas"),
                           QString::fromUtf8("Elo automático da cena."), {"00:00:02"},
                           {first->getLabel()}));
        STEP_VERIFY(scenes().first()->getAllSyncs(Definitions::kSyncType::goTo).size() == 1,
                    "the link was not made: " + lesson());

        step(QString::fromUtf8("Tocar: o elo automático leva à Pergunta 1"));
        STEP_DO(seek(0));
        QTest::mouseClick(playButton(), Qt::LeftButton);
        STEP_TRY(scene() == first && playing(), "playing " + scene()->getLabel());
        for (int q = 0; q < 2; ++q) {
            step(QString::fromUtf8("Tocar: a resposta certa da Pergunta %1").arg(q + 1));
            Scene* question = q ? second : first;
            Media* answer = rightAnswer(question, feedback, 5 * q);
            STEP_TRY(scene() == question && item(answer) && item(answer)->isVisible(),
                     "the answer is not shown; playing " + scene()->getLabel());
            view()->setFocus(Qt::MouseFocusReason);
            ViewInput::click(view(), placed(item(answer)).center());
            STEP_TRY(scene() == feedback, "the click led to " + scene()->getLabel());
            for (Media* m : feedback->getAllMedias())
                if (m->getLabel() == "Imagem de acerto")
                    STEP_TRY(item(m) && item(m)->isVisible(), "the right picture is not shown");
            Scene* next = q ? final : second;
            // Five seconds of the picture, by the scene's own clock.
            STEP_TRY(scene() == next, "after the feedback, " + scene()->getLabel());
        }
        QTest::mouseClick(playButton(), Qt::LeftButton);
        STEP_TRY(!playing(), "the scene did not pause");
    }

    // The lesson exported to HTML from the menu, without a service: saved first, as asked.
    void lessonExportedToHtml() {
        step("Exportar > HTML");
        QVERIFY2(scenes().size() == 5, "the quiz journey did not leave its lesson");
        projectPath = QDir(files.path()).filePath("quiz");
        ModalAnswerer answerer;
        answerer.answer("Sim");
        answerer.answerWith([this](QWidget* widget) {
            if (auto* dialog = qobject_cast<QFileDialog*>(widget)) {
                dialog->findChild<QLineEdit*>("fileNameEdit")->setText(projectPath);
                QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
            }
        });
        answerer.answer(QString::fromUtf8("Não")); // not opened in the browser
        STEP_VERIFY(openMenu("Arquivo"), "the menu Arquivo did not open");
        MenuPicker picker;
        picker.choose({"Exportar", "HTML"});
        STEP_VERIFY(picker.waitDone(15000) && picker.chosen(), "no Exportar > HTML");
        STEP_VERIFY(answerer.waitAllAnswered(60000),
                    QString("%1 boxes of 3 came; the last: %2")
                        .arg(answerer.seen().size())
                        .arg(answerer.last().title + " " + answerer.last().text));
        QApplication::setActiveWindow(bench->window());
        const QList<ModalAnswerer::Seen> seen = answerer.seen();
        STEP_VERIFY(seen[0].title == "Salvar projeto" && seen[1].className == "QFileDialog",
                    "the save was asked by " + seen[0].title + " and " + seen[1].className);
        STEP_VERIFY(seen[2].title == QString::fromUtf8("Exportação") &&
                        seen[2].text.contains("Projeto exportado com sucesso.") &&
                        seen[2].text.contains("quiz.html"),
                    "the export said " + seen[2].title + ": " + seen[2].text);
        STEP_VERIFY(QFileInfo(exportedPage()).size() > 0, "no page " + exportedPage());
        STEP_DO(waitIdle("export"));
    }

    // The exported page, played in Chromium from the first scene to the quiz's end.
    void exportedLessonPlaysInChromium() {
        step("Tocar a aula exportada no Chromium");
        const QString web = QStringLiteral(SELVORA_SOURCE_DIR "/tests/web");
        const QString chromium = qEnvironmentVariable("CHROMIUM", "/usr/bin/chromium");
        if (QStandardPaths::findExecutable("node").isEmpty() ||
            !QFileInfo(chromium).isExecutable() ||
            !QFileInfo(web + "/node_modules/puppeteer-core").isDir())
            QSKIP("node, chromium or tests/web/node_modules (scripts/install-deps.sh) is missing: "
                  "the exported page was not played");
        STEP_VERIFY(QFileInfo(exportedPage()).isFile(), "no page " + exportedPage());
        Scene* first = labelled("Pergunta 1");
        Scene* second = labelled("Pergunta 2");
        Scene* feedback = labelled("Feedback");
        STEP_VERIFY(first && second && feedback, "the lesson is " + lesson());
        const auto wait = [](const QString& name, const Scene* target) {
            return QJsonObject{{"name", name}, {"do", "wait"}, {"scene", target->getId()}};
        };
        const auto click = [](const QString& name, const Media* target) {
            return QJsonObject{{"name", name}, {"do", "click"}, {"media", target->getId()}};
        };
        const QJsonArray steps{wait("Cena 1", scenes().first()),
                               wait(QString::fromUtf8("elo automático para a Pergunta 1"), first),
                               click("resposta certa 1", rightAnswer(first, feedback, 0)),
                               wait("feedback 1", feedback),
                               wait("Pergunta 2", second),
                               click("resposta certa 2", rightAnswer(second, feedback, 5)),
                               wait("feedback 2", feedback),
                               wait("cena final", scenes().last())};
        const QJsonObject setup{{"page", exportedPage()},
                                {"stage", QJsonArray{bench->document()->getProjectViewWidth(),
                                                     bench->document()->getProjectViewHeight()}},
                                {"steps", steps}};
        const QString setupPath = QDir(files.path()).filePath("journey.json");
        QFile file(setupPath);
        STEP_VERIFY(file.open(QIODevice::WriteOnly), "cannot write " + setupPath);
        file.write(QJsonDocument(setup).toJson());
        file.close();
        QProcess node;
        node.setProcessChannelMode(QProcess::MergedChannels);
        node.start("node", {web + "/journey.js", setupPath});
        STEP_VERIFY(node.waitForFinished(120000), "node did not finish: " + node.errorString());
        const QString output = QString::fromUtf8(node.readAll()).trimmed();
        STEP_VERIFY(node.exitStatus() == QProcess::NormalExit && node.exitCode() == 0,
                    "Chromium: " + output);
    }

    // "Publicar": the project saved and packed as a zip, and the portal opened.
    void lessonPublishedAsZip() {
        step("Publicar");
        QVERIFY2(!bench->document()->getProjectName().isNull(), "the lesson was not saved");
        qputenv("SELVORA_PORTAL_URL", "http://portal.example/compor");
        UrlCatcher urls;
        ModalAnswerer answerer;
        answerer.answer("OK");
        STEP_DO(pressTool("Publicar"));
        STEP_VERIFY(answerer.waitAllAnswered(60000), "the publishing never said it ended");
        QApplication::setActiveWindow(bench->window());
        STEP_DO(waitIdle("publishing"));
        STEP_VERIFY(answerer.seen().size() == 1 &&
                        answerer.last().title == QString::fromUtf8("Compactação do Projeto") &&
                        answerer.last().text.contains("<b>quiz.zip</b>"),
                    QString("%1 boxes, the last: %2: %3")
                        .arg(answerer.seen().size())
                        .arg(answerer.last().title, answerer.last().text));
        const QString archive =
            QDir(bench->document()->getProjectDirectory()).filePath("quiz.svproj.zip");
        STEP_TRY(QFileInfo(archive).size() > 0, "no archive " + archive);
        STEP_TRY(urls.opened() == QList<QUrl>{QUrl("http://portal.example/compor")},
                 "the portal was not opened");
    }
};

SELVORA_TEST_MAIN(TestJourneys)
#include "tst_journeys.moc"
