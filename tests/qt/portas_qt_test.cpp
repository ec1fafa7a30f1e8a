// The message boxes and the authorisation dialog: what they show and what
// they answer. The boxes are pressed by the tests, never by timers.
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <functional>

#include "common/conversao.h"
#include "qt/apoio_qt.h"
#include "ui/qt/autorizacao_qt.h"
#include "ui/qt/mensagens_qt.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

// Shows the box, lets the test look at it and press something.
class MensagensApertadas : public MensagensQt {
  public:
    std::function<void(QMessageBox&)> aperta;

  protected:
    void Executa(QMessageBox& caixa) override {
        caixa.show();
        aperta(caixa);
    }
};

class PortasQt : public TelaQt {};

TEST_F(PortasQt, CaixaDeMensagemRespondeComOsNumerosDoSistema) {
    struct Caso {
        int32_t tipo;
        Qt::Key tecla;
        int resposta;
        QMessageBox::Icon icone;
        QMessageBox::StandardButton padrao;
    };
    const Caso casos[] = {
        {292, Qt::Key_Return, msg::RespostaNao, QMessageBox::Question, QMessageBox::No},
        {4 + 32, Qt::Key_Return, msg::RespostaSim, QMessageBox::Question, QMessageBox::Yes},
        {1 + 48, Qt::Key_Escape, msg::RespostaCancelar, QMessageBox::Warning, QMessageBox::Ok},
        {16, Qt::Key_Return, msg::RespostaOK, QMessageBox::Critical, QMessageBox::Ok},
        {64, Qt::Key_Escape, msg::RespostaOK, QMessageBox::Information, QMessageBox::Ok},
    };
    MensagensApertadas m;
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.tipo);
        m.aperta = [&](QMessageBox& caixa) {
            EXPECT_EQ(caixa.windowTitle(), QStringLiteral("Lista"));
            EXPECT_EQ(caixa.text(), QStringLiteral("Confirma a Quantidade de 1000,01?"));
            EXPECT_EQ(caixa.icon(), c.icone);
            EXPECT_EQ(caixa.defaultButton(), caixa.button(c.padrao));
            EXPECT_EQ(caixa.detailedText(), QStringLiteral("Erro na linha : 30"));
            QTest::keyClick(&caixa, c.tecla);
        };
        EXPECT_EQ(CInt(m.fnMsgbox("Confirma a Quantidade de 1000,01?", c.tipo, "Lista", "Erro na linha : 30",
                                  "", "", 0, "")),
                  c.resposta);
    }
    m.aperta = [](QMessageBox& caixa) {
        EXPECT_EQ(caixa.button(QMessageBox::No)->text(), QStringLiteral("&Não"));
        caixa.button(QMessageBox::Yes)->click();
    };
    EXPECT_EQ(CInt(m.fnMsgbox("Sair?", 4, "", "", "", "", 0, "")), msg::RespostaSim);
}

class AutorizacaoPreenchida : public AutorizacaoQt {
  public:
    Qt::Key final = Qt::Key_Return;

  protected:
    bool Executa(QDialog& d) override {
        d.show();
        QTest::keyClicks(d.findChild<QLineEdit*>(QStringLiteral("autorizador")), "SUPERVISOR");
        QTest::keyClicks(d.findChild<QLineEdit*>(QStringLiteral("senha")), "1234");
        QTest::keyClick(d.findChild<QLineEdit*>(QStringLiteral("senha")), final);
        return d.result() == QDialog::Accepted;
    }
};

TEST_F(PortasQt, AutorizacaoDevolveQuemAutorizaOuDesiste) {
    AutorizacaoPreenchida a;
    std::string quem, senha;
    ASSERT_TRUE(a.PedeAutorizacao("PJVELPEV", "DISPON", "DEMO", "Item sem estoque", quem, senha));
    EXPECT_EQ(quem, "SUPERVISOR");
    EXPECT_EQ(senha, "1234");
    a.final = Qt::Key_Escape;
    EXPECT_FALSE(a.PedeAutorizacao("PJVELPEV", "DISPON", "DEMO", "", quem, senha));
}

} // namespace
