#include "app/AboutBox.h"

#include "app/OrganisationInfo.h"

#include <QMessageBox>

namespace selvora {
namespace menu {

QString AboutBox::text() {
    return tr("<h2>Selvorá %1</h2><p align=\"Justify\">A ferramenta de autoria Selvorá tem como "
              "objetivo possibilitar a criação colaborativa de objetos de aprendizagem por "
              "professores e tutores.<p align=\"Justify\">Após a etapa de criação ser "
              "finalizada, os usuários podem publicar as suas composições no repositório de OA "
              "da Rede Nacional de Pesquisa (RNP).<p align=\"Justify\">Com a publicação do "
              "objeto, alunos e professores tem possibilidade de visualização em qualquer "
              "dispositivo com a acesso a internet e reúso do conteúdo para produção de novos "
              "objetos.")
        .arg(OrganisationInfo::version());
}

void AboutBox::show(QWidget* parent) {
    QMessageBox::about(parent, tr("Sobre Selvorá"), text());
}

} // namespace menu
} // namespace selvora
