#include "ui/qt/mensagens_qt.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <array>
#include <iostream>
#include <vector>

#include "ui/qt/comum_qt.h"

namespace ztolvan {
namespace {

struct BotaoCaixa {
    QMessageBox::StandardButton qt;
    int resposta;
    const char* texto;
};

constexpr BotaoCaixa OK{QMessageBox::Ok, msg::RespostaOK, "OK"};
constexpr BotaoCaixa Cancelar{QMessageBox::Cancel, msg::RespostaCancelar, "Cancelar"};
constexpr BotaoCaixa Anular{QMessageBox::Abort, 3, "&Anular"};
constexpr BotaoCaixa Repetir{QMessageBox::Retry, 4, "&Repetir"};
constexpr BotaoCaixa Ignorar{QMessageBox::Ignore, 5, "&Ignorar"};
constexpr BotaoCaixa Sim{QMessageBox::Yes, msg::RespostaSim, "&Sim"};
constexpr BotaoCaixa Nao{QMessageBox::No, msg::RespostaNao, "&Não"};

// The buttons of a code, in the order the system numbers them for the
// default (+0 first, +256 second, +512 third).
std::vector<BotaoCaixa> BotoesDo(int32_t tipo) {
    switch (tipo & 0x7) {
    case 1:
        return {OK, Cancelar};
    case 2:
        return {Anular, Repetir, Ignorar};
    case 3:
        return {Sim, Nao, Cancelar};
    case 4:
        return {Sim, Nao};
    case 5:
        return {Repetir, Cancelar};
    default:
        return {OK};
    }
}

QMessageBox::Icon IconeDo(int32_t tipo) {
    switch (tipo & 0x70) {
    case msg::Critico:
        return QMessageBox::Critical;
    case msg::Pergunta:
        return QMessageBox::Question;
    case msg::Exclamacao:
        return QMessageBox::Warning;
    case msg::Informacao:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

} // namespace

Valor MensagensQt::fnMsgbox(const std::string& Texto, int32_t Tipo, const std::string& Titulo,
                            const std::string& Texto1, const std::string&, const std::string&, int32_t,
                            const std::string&) {
    const std::vector<BotaoCaixa> botoes = BotoesDo(Tipo);
    if (!NaThreadDaTela()) {
        // No box can be shown from this thread: said on stderr, first button taken.
        std::cerr << Titulo << ": " << Texto << '\n';
        return Valor(botoes.front().resposta);
    }
    SincronizaTelas();
    QPointer<QWidget> pai = JanelaDeCima();
    QMessageBox caixa(IconeDo(Tipo), Q(Titulo), Q(Texto), QMessageBox::NoButton, pai);
    for (const BotaoCaixa& b : botoes)
        caixa.addButton(b.qt)->setText(QString::fromUtf8(b.texto));
    const size_t padrao = static_cast<size_t>((Tipo >> 8) & 0x3);
    caixa.setDefaultButton(botoes[padrao < botoes.size() ? padrao : 0].qt);
    // The system's boxes cancel with Esc only when they have a Cancel button.
    for (const BotaoCaixa& b : botoes)
        if (b.qt == QMessageBox::Cancel) caixa.setEscapeButton(QMessageBox::Cancel);
    if (botoes.size() == 1) caixa.setEscapeButton(botoes.front().qt);
    if (!Texto1.empty()) caixa.setDetailedText(Q(Texto1));

    Executa(caixa);
    DevolveTeclado(pai);

    QAbstractButton* apertado = caixa.clickedButton();
    for (const BotaoCaixa& b : botoes)
        if (apertado && caixa.button(b.qt) == apertado) return Valor(b.resposta);
    // Closed without a button: the cancel of the box, else its first button.
    for (const BotaoCaixa& b : botoes)
        if (b.qt == QMessageBox::Cancel) return Valor(b.resposta);
    return Valor(botoes.front().resposta);
}

void MensagensQt::Executa(QMessageBox& caixa) { caixa.exec(); }

} // namespace ztolvan
