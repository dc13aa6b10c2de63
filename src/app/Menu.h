#ifndef SELVORA_APP_MENU_H
#define SELVORA_APP_MENU_H

#include "app/Definitions.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

class QAction;
class QEventLoop;
class QMenu;
class QToolBar;
class QWidget;

namespace selvora {
class TwoStageToolTip;
namespace document {
class Document;
class Scene;
} // namespace document

namespace menu {

class ContactForm;
class ShapePalette;
class UpdateCheck;

// The shapes of the palette in kShapeType order: slot, shape (whose key is also the icon word),
// text. Several shapes share a text on purpose: the icon tells them apart.
#define SELVORA_MENU_SHAPES(X)                                                                     \
    X(openRectangle, rectangle, "Retângulo")                                                       \
    X(openCircle, circle, "Elipse")                                                                \
    X(openTriangle, triangle, "Triângulo")                                                         \
    X(openArrowRight, arrow_right, "Seta para direita")                                            \
    X(openArrowLeft, arrow_left, "Seta para esquerda")                                             \
    X(openArrowTop, arrow_top, "Seta para cima")                                                   \
    X(openArrowBottom, arrow_bottom, "Seta para baixo")                                            \
    X(openRoundedRect, rounded_rect, "Retângulo com cantos arredondados")                          \
    X(openDiamond, diamond, "Losango")                                                             \
    X(openCubeLeft, cube_left, "Cubo")                                                             \
    X(openCubeRight, cube_right, "Cubo")                                                           \
    X(openRightTriangle1, right_triangle1, "Triângulo retângulo")                                  \
    X(openRightTriangle2, right_triangle2, "Triângulo retângulo")                                  \
    X(openRightTriangle3, right_triangle3, "Triângulo retângulo")                                  \
    X(openRightTriangle4, right_triangle4, "Triângulo retângulo")                                  \
    X(openTrapezeTop, trapeze_top, "Trapézio")                                                     \
    X(openTrapezeBottom, trapeze_bottom, "Trapézio")                                               \
    X(openTrapezeRight, trapeze_right, "Trapézio retângular")                                      \
    X(openTrapezeLeft, trapeze_left, "Trapézio retângular")                                        \
    X(openPlus, plus, "Mais")                                                                      \
    X(openMinus, minus, "Menos")                                                                   \
    X(openMultiplication, multiplication, "Multiplicar")                                           \
    X(openDivision, division, "Dividir")                                                           \
    X(openEquality, equality, "Igual")                                                             \
    X(openInequality, inequality, "Diferente")                                                     \
    X(openArrowRectBottom, arrow_rect_bottom, "Caixa com seta para baixo")                         \
    X(openArrowRectTop, arrow_rect_top, "Caixa com seta para cima")                                \
    X(openArrowRectRight, arrow_rect_right, "Caixa com seta para direita")                         \
    X(openArrowRectLeft, arrow_rect_left, "Caixa com seta para esquerda")                          \
    X(openPentagon, pentagon, "Pentágono")                                                         \
    X(openHexagon, hexagon, "Hexágono")                                                            \
    X(openOctogon, octogon, "Octógono")                                                            \
    X(openInvertedTriangle, inverted_triangle, "Triângulo")                                        \
    X(openParallelogramLeft, parallelogram_left, "Paralelogramo")                                  \
    X(openStarFourPoints, star_four_points, "Estrela de 4 pontas")                                 \
    X(openStarFivePoints, star_five_points, "Estrela de 5 pontas")                                 \
    X(openStarSixPoints, star_six_points, "Estrela de 6 pontas")                                   \
    X(openStarEightPoints, star_eight_points, "Estrela de 8 pontas")                               \
    X(openBalloon1, balloon1, "Balão arredondado de texto")                                        \
    X(openBalloon2, balloon2, "Balão arredondado de texto")                                        \
    X(openBalloon3, balloon3, "Balão arredondado de texto")                                        \
    X(openBalloon4, balloon4, "Balão arredondado de texto")                                        \
    X(openBalloonRect1, balloon_rect1, "Balão retangular de texto")                                \
    X(openBalloonRect2, balloon_rect2, "Balão retangular de texto")                                \
    X(openBalloonRect3, balloon_rect3, "Balão retangular de texto")                                \
    X(openBalloonRect4, balloon_rect4, "Balão retangular de texto")                                \
    X(openBracketOpen, bracket_open, "Parêntese esquerdo")                                         \
    X(openBracketClose, bracket_close, "Parêntese direito")                                        \
    X(openBalloonThought1, balloonThought1, "Balão arredondado de pensamento")                     \
    X(openBalloonThought2, balloonThought2, "Balão arredondado de pensamento")                     \
    X(openBalloonThought3, balloonThought3, "Balão arredondado de pensamento")                     \
    X(openBalloonThought4, balloonThought4, "Balão arredondado de pensamento")

// Owns every action of the main window, builds its menus and tool bar on request and carries out
// the commands that belong to no single panel: projects, scenes, inserting media, publishing.
// Most actions are disabled while the current scene plays.
class Menu : public QObject {
    Q_OBJECT
public:
    Menu(document::Document* document, QWidget* parent);
    ~Menu() override;

    // Each returns a new object with no parent, which the caller then owns.
    QMenu* createFileMenu();
    QMenu* createEditMenu();
    QMenu* createOptionMenu();
    QMenu* createToolMenu();
    QMenu* createHelpMenu();
    QToolBar* createToolBar();

    QMenu* getShapeMenu() const;
    QAction* getShapeAction(Definitions::kShapeType type) const;

public slots:
    bool newProject();
    bool openProject();
    bool openRecentProject();
    void createScene();
    void clear();
    void changeScene(selvora::document::Scene* scene);
    bool removeScene();
    void viewProject();
    void createComplementBox();
    void createTemplate();
    void setButtonsStatus(
        selvora::Definitions::kPlayerStatus status = selvora::Definitions::kPlayerStatus::pause);
    void openVideoFile();
    void openImageFile();
    void openText();
    void showShapeMenu();
    void updateRecentProjectActions();
    void publish();
    void exportHTML();
    void exportNCL();
    void exportSCORM();
    void closeWindow();
    void showToolTip();
    void updateToolTipText();

    void settingVerifyUpdate();
    void openContactForm();
    void configRepository();
    void about();

#define SELVORA_MENU_SHAPE_SLOT(slot, shape, text)                                                 \
    void slot() {                                                                                  \
        openShape(Definitions::kShapeType::shape);                                                 \
    }
    SELVORA_MENU_SHAPES(SELVORA_MENU_SHAPE_SLOT)
#undef SELVORA_MENU_SHAPE_SLOT

protected:
    // Ends the wait for a save when its progress dialog goes.
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    // A media came or went: the main video may have changed.
    void refreshButtons();

private:
    void setConnections();
    void setDocumentConnections();
    void setDocumentDisconnections();
    void setSceneConnections();
    void setSceneDisconnections();
    void createActions();
    void createShapeActions();
    void createSubMenus();
    void createRecentFilesActions();
    QAction* makeAction(const QString& text, const QString& icon);
    void openShape(Definitions::kShapeType type);
    void openMediaFile(Definitions::kMediaType type);
    // Yes, No or Cancel to saving a modified project; No, without asking, when unmodified.
    int askToSave();
    // Asks, and saves on Yes: false when the user cancels.
    bool saveUnlessCancelled();
    QString chooseProjectFile();
    // Saves and waits for the save's worker, which reads the model, to finish.
    void saveAndWait();
    // Saves first when the project was never saved; true when it has a name now.
    bool saveBeforePublishing();
    QString shownProjectName() const;
    int getNumRecentFiles() const;
    static QString strippedName(const QString& fullFileName);
    void setToolTipTexts();

    document::Document* document_;
    QPointer<document::Scene> scene_;

    QAction* newAct_ = nullptr;
    QAction* openAct_ = nullptr;
    QAction* saveAct_ = nullptr;
    QAction* saveAsAct_ = nullptr;
    QAction* exportAct_ = nullptr;
    QAction* exportHtmlAct_ = nullptr;
    QAction* exportNclAct_ = nullptr;
    QAction* exportScormAct_ = nullptr;
    QAction* shapeAct_ = nullptr;
    QAction* exitAct_ = nullptr;
    QAction* aboutAct_ = nullptr;
    QAction* reportAct_ = nullptr;
    QAction* repositoryAct_ = nullptr;
    QAction* undoAct_ = nullptr;
    QAction* redoAct_ = nullptr;
    QAction* complementAct_ = nullptr;
    QAction* imageAct_ = nullptr;
    QAction* addSceneAct_ = nullptr;
    QAction* viewAct_ = nullptr;
    QAction* publishAct_ = nullptr;
    QAction* removeSceneAct_ = nullptr;
    QAction* templateAct_ = nullptr;
    QAction* textAct_ = nullptr;
    QAction* updateAct_ = nullptr;
    QAction* videoAct_ = nullptr;
    QList<QAction*> shapeActions_; // indexed by kShapeType

    // Both menus hang on the main window; the pointers guard whichever of the two goes first.
    QPointer<ShapePalette> shapeMenu_;
    QPointer<QMenu> exportMenu_;
    QWidget* parent_;

    TwoStageToolTip* toolTip_ = nullptr;

    QList<QAction*> recentFileActs_;

    UpdateCheck* updateCheck_ = nullptr;
    ContactForm* contactForm_ = nullptr;
    QEventLoop* savingLoop_ = nullptr;
};

} // namespace menu
} // namespace selvora

#endif
