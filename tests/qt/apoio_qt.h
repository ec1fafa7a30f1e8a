#pragma once
#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

#include "common/armazem_maquina.h"
#include "common/contexto.h"
#include "common/mensagens.h"
#include "common/portas.h"
#include "screens/tela.h"
#include "ui/qt/instala_qt.h"
#include "ui/qt/janelas_qt.h"
#include "ui/qt/visao_tela.h"

namespace ztolvan::teste {

// A thread with the Qt window system, installed as a host would, and
// scripted message answers.
class TelaQt : public ::testing::Test {
  protected:
    void SetUp() override {
        // No window shows up on the desktop of whoever runs them.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        ASSERT_TRUE(InstalaQt());
        Contexto::Renova();
        ASSERT_NE(dynamic_cast<JanelasQt*>(PortasAtuais().telas.get()), nullptr);
        PortasAtuais().mensagens = mensagens;
        PortasAtuais().armazem = std::make_shared<ArmazemMemoria>();
    }
    void TearDown() override { Contexto::Renova(); }

    // Loads the screen and shows it as a modal show would, short of waiting.
    std::unique_ptr<VisaoTela> Abre(Tela& t) {
        t.Carrega();
        auto v = JanelasQt::Abre(t);
        EXPECT_TRUE(QTest::qWaitForWindowActive(v.get()));
        return v;
    }
    // A key as the operator presses it, to whatever has the focus.
    static void Tecla(Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), k, m);
    }
    static void Digita(const char* texto) { QTest::keyClicks(QApplication::focusWidget(), texto); }

    std::shared_ptr<MensagensGravadas> mensagens = std::make_shared<MensagensGravadas>();
};

} // namespace ztolvan::teste
