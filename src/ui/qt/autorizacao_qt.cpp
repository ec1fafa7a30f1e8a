#include "ui/qt/autorizacao_qt.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "common/texto.h"
#include "ui/qt/comum_qt.h"

namespace ztolvan {

bool AutorizacaoQt::PedeAutorizacao(const std::string& Programa, const std::string& Funcao,
                                    const std::string& Operador, const std::string& Texto,
                                    std::string& Autorizador, std::string& Senha) {
    if (!NaThreadDaTela()) return false;
    SincronizaTelas();
    QPointer<QWidget> pai = JanelaDeCima();
    QDialog d(pai);
    d.setWindowTitle(QStringLiteral("Autorização"));
    auto* arranjo = new QVBoxLayout(&d);
    const std::string motivo = Apara(Texto).empty() ? Apara(Programa) + " - " + Apara(Funcao) : Apara(Texto);
    auto* explica = new QLabel(
        QStringLiteral("O operador %1 não tem permissão para esta operação:\n%2\n\nInforme quem autoriza.")
            .arg(Q(Apara(Operador)), Q(motivo)),
        &d);
    explica->setWordWrap(true);
    arranjo->addWidget(explica);
    auto* campos = new QFormLayout;
    auto* autorizador = new QLineEdit(&d);
    autorizador->setObjectName(QStringLiteral("autorizador"));
    autorizador->setMaxLength(40);
    auto* senha = new QLineEdit(&d);
    senha->setObjectName(QStringLiteral("senha"));
    senha->setEchoMode(QLineEdit::Password);
    campos->addRow(QStringLiteral("&Autorizador:"), autorizador);
    campos->addRow(QStringLiteral("&Senha:"), senha);
    arranjo->addLayout(campos);
    auto* botoes = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &d);
    botoes->button(QDialogButtonBox::Ok)->setText(QStringLiteral("C&onfirmar"));
    botoes->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancelar"));
    QObject::connect(botoes, &QDialogButtonBox::accepted, &d, &QDialog::accept);
    QObject::connect(botoes, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    arranjo->addWidget(botoes);
    autorizador->setFocus();

    const bool aceito = Executa(d);
    DevolveTeclado(pai);
    if (!aceito) return false;
    Autorizador = S(autorizador->text());
    Senha = S(senha->text());
    return true;
}

bool AutorizacaoQt::Executa(QDialog& dialogo) { return dialogo.exec() == QDialog::Accepted; }

} // namespace ztolvan
