// The generic view on a screen of its own: key preview before the widgets
// and the shortcuts, the grid adapter, run-time controls and the close box.
#include <QAbstractItemModelTester>
#include <QDialog>
#include <QAction>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableView>

#include "qt/apoio_qt.h"
#include "screens/auxiliary/rodape.h"
#include "screens/grade.h"
#include "screens/teclas.h"
#include "ui/qt/comum_qt.h"
#include "ui/qt/delegado_grade.h"
#include "ui/qt/modelo_grade.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class TelaGrade : public Tela {
  public:
    TelaGrade() : Tela("TelaGrade") {
        Caption = "Grade de teste";
        Width = 6000;
        Height = 4000;
        Registra(g, "g", 120, 120, 5000, 2500, 0);
        Registra(ok, "ok", 120, 2800, 1200, 375, 1);
        g.DefineCols(3);
        g.DefineRows(1);
        for (int c = 0; c < 3; ++c)
            g.DefineTextMatrix(0, c, "C" + std::to_string(c));
        g.AddItem("a\t1\tx");
        g.AddItem("b\t2\ty");
        g.DefineLarguraM(0, 5);
        g.DefineLarguraM(1, 0);
        g.DefineLarguraM(2, 3);
        g.Click = [this] { ++cliques; };
        consumida.Shortcut = {tecla::F5, 0};
        consumida.Click = [this] { ++cliquesF5; };
        livre.Shortcut = {tecla::F6, 0};
        livre.Click = [this] { ++cliquesF6; };
        raiz.Adiciona(consumida).Adiciona(livre);
        Menus.push_back(&raiz);
    }
    void Form_KeyDown(int& KeyCode, int Shift) override {
        teclas.push_back({KeyCode, Shift});
        if (KeyCode == tecla::F5) KeyCode = 0;
    }
    void Form_Activate() override { ++ativacoes; }
    void Form_QueryUnload(int& Cancel, int UnloadMode) override {
        if (recusa && UnloadMode == fechamento::MenuDeControle) Cancel = 1;
    }

    Grade g;
    Botao ok;
    ItemMenu raiz, consumida, livre;
    std::vector<std::pair<int, int>> teclas;
    int cliques = 0, cliquesF5 = 0, cliquesF6 = 0, ativacoes = 0;
    bool recusa = true;
};

class VisaoQt : public TelaQt {};

TEST_F(VisaoQt, TeclasChegamATelaAntesDaGradeEDosAtalhos) {
    TelaGrade t;
    auto v = Abre(t);
    ASSERT_EQ(QApplication::focusWidget(), v->WidgetDe(&t.g));

    Tecla(Qt::Key_Return);
    Tecla(Qt::Key_C, Qt::ControlModifier);
    Tecla(Qt::Key_F5);
    Tecla(Qt::Key_F6);
    // Ctrl is a key of its own, as the old window system reported it.
    const std::vector<std::pair<int, int>> esperadas = {
        {tecla::Enter, 0}, {17, modificador::Ctrl}, {'C', modificador::Ctrl}, {tecla::F5, 0}, {tecla::F6, 0}};
    EXPECT_EQ(t.teclas, esperadas);
    EXPECT_EQ(t.cliquesF5, 0) << "a key the screen consumed fires no shortcut";
    EXPECT_EQ(t.cliquesF6, 1);

    Tecla(Qt::Key_Down);
    EXPECT_EQ(t.g.Row(), 1) << "the grid's first data row became current";
    Tecla(Qt::Key_Down);
    EXPECT_EQ(t.g.Row(), 2);
    EXPECT_EQ(t.cliques, 2);

    t.livre.Enabled = false;
    v->Sincroniza();
    Tecla(Qt::Key_F6);
    EXPECT_EQ(t.cliquesF6, 1) << "a disabled item's shortcut is off";
    EXPECT_FALSE(v->AcaoDe(&t.livre)->isEnabled());
}

// The screen makes its hidden marks column current (as after a mark): the
// arrows still move the highlighted row, and a marked row shows its mark.
TEST_F(VisaoQt, ColunaOcultaAtualNaoPrendeAsSetasEAMarcaAparece) {
    TelaGrade t;
    t.g.ColunaMarca = 1;
    auto v = Abre(t);
    auto* tabela = static_cast<QTableView*>(v->WidgetDe(&t.g));
    t.g.DefineRow(1);
    t.g.DefineCol(1);
    t.g.DefineTextMatrix(1, 1, " ");
    v->Sincroniza();
    Tecla(Qt::Key_Down);
    EXPECT_EQ(t.g.Row(), 2);
    Tecla(Qt::Key_Up);
    EXPECT_EQ(t.g.Row(), 1);

    const QAbstractItemModel& m = *tabela->model();
    EXPECT_EQ(m.data(m.index(1, 0)).toString(), QStringLiteral("\u2714 b")) << "a mark is a tick on the first shown column";
    EXPECT_TRUE(m.data(m.index(1, 2), Qt::BackgroundRole).isValid());
    EXPECT_EQ(m.data(m.index(0, 0)).toString(), QStringLiteral("a")) << "a blank mark is no mark";
    EXPECT_FALSE(m.data(m.index(0, 2), Qt::BackgroundRole).isValid());
}

// Each time the window becomes active again, the screen hears Form_Activate
// (a setting changed elsewhere is read before the next command).
TEST_F(VisaoQt, FormActivateACadaVezQueAJanelaVoltaASerAtiva) {
    TelaGrade t;
    auto v = Abre(t);
    EXPECT_EQ(t.ativacoes, 1);
    QDialog outra;
    outra.show();
    outra.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&outra));
    EXPECT_EQ(t.ativacoes, 1);
    outra.hide();
    v->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(v.get()));
    EXPECT_EQ(t.ativacoes, 2);
}

TEST_F(VisaoQt, GradeLidaNoLugarComLarguraEmM) {
    TelaGrade t;
    ModeloGrade m(t.g);
    QAbstractItemModelTester verificador(&m, QAbstractItemModelTester::FailureReportingMode::Warning);
    QSignalSpy resets(&m, &QAbstractItemModel::modelReset), mudancas(&m, &QAbstractItemModel::dataChanged);
    EXPECT_EQ(m.rowCount(), 2);
    EXPECT_EQ(m.headerData(2, Qt::Horizontal).toString(), QStringLiteral("C2"));
    EXPECT_EQ(m.data(m.index(1, 1)).toString(), QStringLiteral("2"));
    EXPECT_EQ(m.data(m.index(1, 1), Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight,
              Qt::AlignRight)
        << "general alignment puts numbers right";

    t.g.DefineTextMatrix(2, 0, "novo");
    EXPECT_EQ(m.Atualiza(), ModeloGrade::Mudanca::Textos);
    t.g.AddItem("c\t3\tz");
    t.g.AddItem("d\t4\tw");
    EXPECT_EQ(m.rowCount(), 2) << "rows count as announced until Atualiza";
    EXPECT_EQ(m.Atualiza(), ModeloGrade::Mudanca::Estrutura);
    EXPECT_EQ(m.Atualiza(), ModeloGrade::Mudanca::Nenhuma);
    EXPECT_EQ(m.rowCount(), 4);
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(mudancas.count(), 1);
    t.g.DefineRows(2);
    EXPECT_FALSE(m.data(m.index(3, 0)).isValid()) << "a cut row reads as empty before the reset";

    auto v = Abre(t);
    auto* tabela = static_cast<QTableView*>(v->WidgetDe(&t.g));
    const QFontMetrics fm(tabela->font());
    EXPECT_EQ(tabela->columnWidth(0), fm.horizontalAdvance(QStringLiteral("MMMMM")));
    EXPECT_TRUE(tabela->isColumnHidden(1));
    EXPECT_TRUE(tabela->verticalHeader()->isHidden()) << "the old grid shows no row numbers";
    EXPECT_EQ(tabela->model()->rowCount(), 1);
}

TEST_F(VisaoQt, ControlesDeExecucaoVemEVaoEACaixaDeFecharPergunta) {
    TelaGrade t;
    auto v = Abre(t);
    sbMontaRodape(t, "Data: 01/02/2026", "Tecle <ESC> para Sair");
    v->Sincroniza();
    auto* rotulo = qobject_cast<QLabel*>(v->WidgetDe(t.Acha("lblPainel1")));
    ASSERT_NE(rotulo, nullptr);
    EXPECT_EQ(rotulo->text(), QStringLiteral("Tecle <ESC> para Sair"));
    EXPECT_GE(rotulo->width(), rotulo->sizeHint().width()) << "fitted labels are never cut";
    sbMontaRodape(t, "Só um");
    v->Sincroniza();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(t.Acha("lblPainel1"), nullptr);
    EXPECT_EQ(v->findChildren<QLabel*>(QStringLiteral("lblPainel0")).size(), 1);

    v->close();
    EXPECT_TRUE(v->isVisible()) << "the screen refused to close";
    EXPECT_TRUE(t.Carregada());
    t.recusa = false;
    v->close();
    EXPECT_FALSE(v->isVisible());
    EXPECT_FALSE(t.Carregada());
}

// A cell's text keeps its place to the pixel when it is laid out once and
// drawn again: the same picture as one line drawn in the cell, for every
// alignment the grids use, a tick from another font and a text cut at the
// edge, on the first paint and on the next.
TEST_F(VisaoQt, CelulaDesenhaOTextoComoUmaLinhaNaCelula) {
    QStandardItemModel m(1, 1);
    const QModelIndex i = m.index(0, 0);
    DelegadoGrade d;
    QStyleOptionViewItem o;
    o.font = QApplication::font();
    o.palette = QApplication::palette();
    o.state = QStyle::State_Enabled | QStyle::State_Active;
    const auto imagem = [&](const auto& desenha) {
        QImage img(o.rect.width() + 10, o.rect.height() + 6, QImage::Format_ARGB32_Premultiplied);
        img.fill(Qt::white);
        QPainter p(&img);
        desenha(p);
        return img;
    };
    const QString textos[] = {QStringLiteral("R$ 1.234,56"), QStringLiteral("\u2714 Café torrado e moído"),
                              QStringLiteral("Laticínios Serra Verde Indústria e Comércio")};
    const Qt::Alignment alinhamentos[] = {Qt::AlignLeft | Qt::AlignTop, Qt::AlignLeft | Qt::AlignVCenter,
                                          Qt::AlignLeft | Qt::AlignBottom, Qt::AlignRight | Qt::AlignVCenter,
                                          Qt::AlignHCenter | Qt::AlignVCenter};
    // Rows as tall as the grid makes them for its font, and one pixel
    // taller (a centred line then falls between two pixels); narrower than
    // the longest texts.
    for (const int folga : {4, 5}) {
        o.rect = QRect(0, 0, 150, QFontMetrics(o.font).height() + folga);
        for (const QString& t : textos)
            for (const Qt::Alignment a : alinhamentos) {
                m.setData(i, t, Qt::DisplayRole);
                m.setData(i, int(a), Qt::TextAlignmentRole);
                const QImage linha = imagem([&](QPainter& p) {
                    p.setPen(o.palette.color(QPalette::Active, QPalette::Text));
                    p.setFont(o.font);
                    p.drawText(o.rect.adjusted(3, 1, -3, -1), int(a) | Qt::TextSingleLine, t);
                });
                for (const char* vez : {"first paint", "next paint"})
                    EXPECT_EQ(imagem([&](QPainter& p) { d.paint(&p, o, i); }), linha)
                        << t.toStdString() << " alignment " << int(a) << " row " << o.rect.height() << ", " << vez;
            }
    }
}

} // namespace
