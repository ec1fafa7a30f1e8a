#include "ui/qt/visao_tela.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QWindow>
#include <algorithm>
#include <functional>

#include "common/texto.h"
#include "screens/grade.h"
#include "screens/relato.h"
#include "screens/twips.h"
#include "ui/qt/comum_qt.h"
#include "ui/qt/controles_qt.h"
#include "ui/qt/delegado_grade.h"
#include "ui/qt/modelo_grade.h"
#include "ui/qt/teclas_qt.h"

namespace ztolvan {
namespace {

std::vector<VisaoTela*>& Registro() {
    static std::vector<VisaoTela*> vivas;
    return vivas;
}

// Labels, shapes and frames were drawn on the old screens' own surface,
// under every control that has a window of its own.
bool Desenhado(TipoControle t) {
    return t == TipoControle::Rotulo || t == TipoControle::Forma || t == TipoControle::Moldura;
}

struct Sincronizando {
    int& n;
    explicit Sincronizando(int& n) : n(n) { ++n; }
    ~Sincronizando() { --n; }
};

// A grid row: one line of its font with a little air.
int AlturaLinha(const QFont& f) { return QFontMetrics(f).height() + 4; }

void Paleta(QWidget* w, std::initializer_list<std::pair<QPalette::ColorRole, Cor>> cores) {
    QPalette p = w->palette();
    for (auto [papel, cor] : cores)
        p.setColor(papel, CorQt(cor));
    if (p != w->palette()) w->setPalette(p);
}

// What a window manager shows: the screen's own title bar when it has one
// (some forms keep a designer's caption under it), else the form's caption.
std::string TituloDaJanela(const Tela& t) {
    for (const Controle* c : t.Controls())
        if (c->Tipo() == TipoControle::BarraTitulo) {
            const std::string& texto = static_cast<const BarraTitulo*>(c)->Caption;
            if (!Apara(texto).empty()) return texto;
        }
    return t.Caption;
}

} // namespace

VisaoTela::VisaoTela(Tela& t, QWidget* pai) : QDialog(pai), tela_(t) {
    Qt::WindowFlags f = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                        Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (t.NoTopo) f |= Qt::WindowStaysOnTopHint;
    setWindowFlags(f);
    setSizeGripEnabled(false);
    installEventFilter(this);
    Registro().push_back(this);
    Sincroniza();
}

VisaoTela::~VisaoTela() { std::erase(Registro(), this); }

VisaoTela* VisaoTela::De(const Tela* t) {
    auto& r = Registro();
    for (auto it = r.rbegin(); it != r.rend(); ++it)
        if (&(*it)->tela_ == t) return *it;
    return nullptr;
}

std::vector<VisaoTela*> VisaoTela::Todas() { return Registro(); }

int VisaoTela::Px(int twips) const { return TwipsParaPixels(twips, DpiLogico(this)); }

// Runs one event of the model. A failure the handler did not trap is
// reported in the system's words and never reaches Qt.
template <class F> void VisaoTela::Encaminha(const char* evento, F&& f) {
    QPointer<VisaoTela> viva(this);
    try {
        Protegido(EstiloErro::Critico, evento, tela_.Name, [&](int&) { f(); });
    } catch (...) {
    }
    if (viva) AposEvento();
}

void VisaoTela::AposEvento() {
    if (!tela_.Carregada()) {
        if (isVisible()) QDialog::done(QDialog::Rejected);
        return;
    }
    Sincroniza();
}

QWidget* VisaoTela::WidgetDe(const Controle* c) const {
    for (const Item& i : itens_)
        if (i.controle == c) return i.widget;
    return nullptr;
}

VisaoTela::Item* VisaoTela::ItemDe(const QObject* o) {
    for (; o && o != this; o = o->parent())
        for (Item& i : itens_)
            if (i.widget == o) return &i;
    return nullptr;
}

Controle* VisaoTela::ControleDe(const QObject* o) const {
    Item* i = const_cast<VisaoTela*>(this)->ItemDe(o);
    return i ? i->controle : nullptr;
}

QAction* VisaoTela::AcaoDe(const ItemMenu* m) const {
    for (const Acao& a : acoes_)
        if (a.item == m) return a.acao;
    return nullptr;
}

// ---- building ----------------------------------------------------------

VisaoTela::Item VisaoTela::CriaItem(Controle& c) {
    Item i;
    i.controle = &c;
    i.tipo = c.Tipo();
    i.nome = c.Name;
    Controle* pc = &c;
    switch (c.Tipo()) {
    case TipoControle::Rotulo: {
        auto* l = new QLabel(this);
        l->setTextFormat(Qt::PlainText);
        l->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        l->setFocusPolicy(Qt::NoFocus);
        i.widget = l;
        break;
    }
    case TipoControle::CaixaTexto: {
        auto* cx = static_cast<CaixaTexto*>(pc);
        i.selInicio = cx->SelStart;
        i.selTamanho = cx->SelLength;
        if (cx->MultiLine) {
            auto* m = new CaixaMultiLinhaQt(this);
            m->aoEditar = [this, cx, m] {
                Encaminha("Change", [&] {
                    const std::string t = m->Texto();
                    cx->Digita(t);
                    if (Largura(cx->Text) < Largura(t)) QApplication::beep();
                    if (cx->Text == t) {
                        cx->SelStart = m->Cursor();
                        cx->SelLength = 0;
                    }
                });
            };
            i.widget = m;
            break;
        }
        auto* e = new QLineEdit(this);
        connect(e, &QLineEdit::textEdited, this, [this, cx, e](const QString& t) {
            Encaminha("Change", [&] {
                const std::string digitado = S(t);
                cx->Digita(digitado);
                // A character the field refused (a comma in a digits-only mask, one past
                // the maximum) sounds, as on the old masked box, instead of vanishing quietly.
                if (Largura(cx->Text) < Largura(digitado)) QApplication::beep();
                // The caret stays where the operator left it when the text kept its shape.
                if (cx->Text == S(e->text())) {
                    cx->SelStart = e->cursorPosition();
                    cx->SelLength = 0;
                }
            });
        });
        i.widget = e;
        break;
    }
    case TipoControle::ListaSuspensa: {
        auto* cb = new QComboBox(this);
        auto* ls = static_cast<ListaSuspensa*>(pc);
        connect(cb, &QComboBox::activated, this, [this, ls](int indice) {
            if (!sincronizando_) Encaminha("Click", [&] { ls->Seleciona(indice); });
        });
        i.widget = cb;
        break;
    }
    case TipoControle::Lista: {
        auto* l = new QListWidget(this);
        auto* lista = static_cast<Lista*>(pc);
        l->setSelectionMode(QAbstractItemView::SingleSelection);
        l->setUniformItemSizes(true);
        connect(l, &QListWidget::currentRowChanged, this, [this, lista](int linha) {
            if (sincronizando_ || linha == lista->ListIndex) return;
            Encaminha("Click", [&] {
                lista->ListIndex = linha;
                Controle::Dispara(lista->Click);
            });
        });
        connect(l, &QListWidget::itemDoubleClicked, this,
                [this, lista] { Encaminha("DblClick", [&] { Controle::Dispara(lista->DblClick); }); });
        i.widget = l;
        break;
    }
    case TipoControle::Botao: {
        auto* b = new QPushButton(this);
        b->setAutoDefault(false);
        b->setDefault(false);
        connect(b, &QPushButton::clicked, this,
                [this, pc] { Encaminha("Click", [&] { Controle::Dispara(pc->Click); }); });
        i.widget = b;
        break;
    }
    case TipoControle::Forma:
        i.widget = new FormaQt(this);
        break;
    case TipoControle::Moldura:
        i.widget = new MolduraQt(this);
        break;
    case TipoControle::Grade: {
        auto* v = new QTableView(this);
        auto* g = static_cast<Grade*>(pc);
        // The grid's font, row height and hidden row numbers before its
        // model: the header measures its captions once, in the font they are
        // shown in, thousands of rows are never resized one by one, and no
        // row number is measured for a column nobody sees.
        AplicaFonte(i, v);
        v->horizontalHeader()->setFont(v->font());
        v->verticalHeader()->setDefaultSectionSize(AlturaLinha(v->font()));
        v->verticalHeader()->hide();
        i.grade = new ModeloGrade(*g, v);
        v->setModel(i.grade);
        v->setItemDelegate(new DelegadoGrade(v));
        v->setSelectionBehavior(QAbstractItemView::SelectRows);
        v->setSelectionMode(QAbstractItemView::SingleSelection);
        v->setEditTriggers(QAbstractItemView::NoEditTriggers);
        // Tab leaves the grid for the next control, as the old grid did.
        v->setTabKeyNavigation(false);
        v->setWordWrap(false);
        v->horizontalHeader()->setHighlightSections(false);
        v->horizontalHeader()->setSectionsClickable(false);
        // The view shows what the grid says is current; nothing of its own.
        v->setCurrentIndex(QModelIndex());
        connect(v->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this, g](const QModelIndex& atual) {
                    if (sincronizando_ || !atual.isValid()) return;
                    if (g->Row() == atual.row() + 1 && g->Col() == atual.column()) return;
                    gradeMudouNoClique_ = true;
                    Encaminha("Click", [&] {
                        g->Seleciona(atual.row() + 1, atual.column());
                        Controle::Dispara(g->Click);
                    });
                });
        connect(v, &QTableView::clicked, this, [this, g] {
            if (gradeMudouNoClique_) return;
            Encaminha("Click", [&] { Controle::Dispara(g->Click); });
        });
        connect(v, &QTableView::doubleClicked, this,
                [this, g] { Encaminha("DblClick", [&] { Controle::Dispara(g->DblClick); }); });
        i.widget = v;
        break;
    }
    case TipoControle::BarraTitulo: {
        auto* b = new BarraTituloQt(this);
        auto* barra = static_cast<BarraTitulo*>(pc);
        b->aoPedirMenu = [this, barra] { Encaminha("Menu", [&] { Controle::Dispara(barra->Menu); }); };
        i.widget = b;
        break;
    }
    }
    i.widget->setObjectName(Q(c.Name));
    i.widget->installEventFilter(this);
    for (QWidget* filho : i.widget->findChildren<QWidget*>())
        filho->installEventFilter(this);
    return i;
}

void VisaoTela::Reconstroi() {
    versaoControles_ = tela_.VersaoControles();
    std::vector<Item> novos;
    for (Controle* c : tela_.Controls()) {
        auto it = std::find_if(itens_.begin(), itens_.end(), [&](const Item& i) {
            return i.widget && i.controle == c && i.tipo == c->Tipo() && i.nome == c->Name;
        });
        if (it != itens_.end()) {
            novos.push_back(std::move(*it));
            it->widget = nullptr;
        } else {
            novos.push_back(CriaItem(*c));
        }
    }
    // Controls the screen dropped; their widgets may be mid-event, so they go later.
    for (Item& velho : itens_)
        if (velho.widget) {
            velho.widget->hide();
            velho.widget->removeEventFilter(this);
            disconnect(velho.widget, nullptr, this, nullptr);
            velho.widget->deleteLater();
        }
    itens_ = std::move(novos);

    for (const Item& i : itens_)
        if (Desenhado(i.tipo)) i.widget->raise();
    for (const Item& i : itens_)
        if (!Desenhado(i.tipo)) i.widget->raise();

    QWidget* anterior = nullptr;
    for (Controle* c : tela_.OrdemTab())
        if (QWidget* w = WidgetDe(c)) {
            if (anterior) setTabOrder(anterior, w);
            anterior = w;
        }
}

// ---- mirroring ---------------------------------------------------------

void VisaoTela::Sincroniza() {
    Sincronizando guarda(sincronizando_);
    try {
        const QString titulo = Q(TituloDaJanela(tela_));
        if (windowTitle() != titulo) setWindowTitle(titulo);
        if (tela_.Width > 0 && tela_.Height > 0) {
            const QSize tamanho(Px(tela_.Width), Px(tela_.Height));
            if (size() != tamanho || minimumSize() != tamanho) setFixedSize(tamanho);
        }
        if (tela_.VersaoControles() != versaoControles_) Reconstroi();
        for (Item& i : itens_)
            SincronizaItem(i);
        SincronizaMenus();
        SincronizaFoco();
        if (selecionar_ && selecionar_->hasFocus()) {
            selecionar_->selectAll();
            selecionar_ = nullptr;
        }
    } catch (...) {
        // A model caught mid-change is mirrored on the next event.
    }
}

void VisaoTela::AplicaFonte(Item& i, QWidget* w) {
    if (i.temFonte && i.fonte == i.controle->Font) return;
    w->setFont(FonteQt(i.controle->Font));
    i.fonte = i.controle->Font;
    i.temFonte = true;
    i.versaoLista = UINT64_MAX; // a grid's widths follow its font
}

void VisaoTela::SincronizaItem(Item& i) {
    Controle& c = *i.controle;
    QWidget* w = i.widget;

    const int x = Px(c.Left), y = Px(c.Top);
    int largura = Px(c.Left + c.Width) - x, altura = Px(c.Top + c.Height) - y;
    if (i.tipo == TipoControle::Forma) {
        const int borda = static_cast<const Forma&>(c).BorderWidth;
        largura = std::max(largura, borda);
        altura = std::max(altura, borda);
    }
    if (i.tipo == TipoControle::Rotulo && static_cast<const Rotulo&>(c).AutoSize)
        largura = std::max(largura, w->sizeHint().width());
    const QRect geo(x, y, largura, altura);
    if (w->geometry() != geo) w->setGeometry(geo);
    if (w->isHidden() == c.Visible) w->setVisible(c.Visible);
    if (w->isEnabled() != c.Enabled) w->setEnabled(c.Enabled);
    const QString dica = Q(c.ToolTipText);
    if (w->toolTip() != dica) w->setToolTip(dica);

    if (i.tipo != TipoControle::Forma && i.tipo != TipoControle::BarraTitulo) AplicaFonte(i, w);
    if (c.RecebeFoco()) {
        const Qt::FocusPolicy politica = c.TabStop ? Qt::StrongFocus : Qt::ClickFocus;
        if (w->focusPolicy() != politica) w->setFocusPolicy(politica);
    }
    const bool coresMudaram = !i.temCores || i.frente != c.ForeColor || i.fundo != c.BackColor;
    i.frente = c.ForeColor;
    i.fundo = c.BackColor;
    i.temCores = true;

    switch (i.tipo) {
    case TipoControle::Rotulo: {
        auto& r = static_cast<const Rotulo&>(c);
        auto* l = static_cast<QLabel*>(w);
        QString t = Q(r.Caption);
        // A caption running past the window's edge (the support line in the
        // strip of a narrow dialog) ends in "…" instead of a cut character.
        const int livre = Px(tela_.Width) - x;
        if (!r.WordWrap && livre > 0 && l->fontMetrics().horizontalAdvance(t) > livre)
            t = l->fontMetrics().elidedText(t, Qt::ElideRight, livre);
        if (l->text() != t) l->setText(t);
        if (l->wordWrap() != r.WordWrap) l->setWordWrap(r.WordWrap);
        if (l->autoFillBackground() != r.Opaco) l->setAutoFillBackground(r.Opaco);
        if (coresMudaram) Paleta(l, {{QPalette::WindowText, c.ForeColor}, {QPalette::Window, c.BackColor}});
        break;
    }
    case TipoControle::CaixaTexto: {
        auto& cx = static_cast<const CaixaTexto&>(c);
        auto* m = dynamic_cast<CaixaMultiLinhaQt*>(w);
        auto* e = qobject_cast<QLineEdit*>(w);
        if (m) {
            m->Mostra(cx.TextoExibido(m->hasFocus()), cx.MaxLength, cx.Locked);
        } else if (e) {
            const QString mostrado = Q(cx.TextoExibido(e->hasFocus()));
            if (e->text() != mostrado) e->setText(mostrado);
            if (e->isReadOnly() != cx.Locked) e->setReadOnly(cx.Locked);
            const int maximo = cx.MaxLength > 0 ? cx.MaxLength : 32767;
            if (e->maxLength() != maximo) e->setMaxLength(maximo);
        }
        // A selection the model asked for shows once the field has the focus.
        if ((cx.SelStart != i.selInicio || cx.SelLength != i.selTamanho) && w->hasFocus()) {
            if (m)
                m->Seleciona(cx.SelStart, cx.SelLength);
            else if (e && cx.SelLength > 0)
                e->setSelection(cx.SelStart, cx.SelLength);
            else if (e)
                e->setCursorPosition(cx.SelStart);
            i.selInicio = cx.SelStart;
            i.selTamanho = cx.SelLength;
        }
        if (coresMudaram) Paleta(w, {{QPalette::Text, c.ForeColor}, {QPalette::Base, c.BackColor}});
        break;
    }
    case TipoControle::ListaSuspensa: {
        auto& ls = static_cast<const ListaSuspensa&>(c);
        auto* cb = static_cast<QComboBox*>(w);
        if (i.itens != ls.Itens) {
            cb->clear();
            for (const std::string& t : ls.Itens)
                cb->addItem(Q(t));
            i.itens = ls.Itens;
        }
        const int indice = ls.ListIndex < ls.ListCount() ? ls.ListIndex : -1;
        if (cb->currentIndex() != indice) cb->setCurrentIndex(indice);
        if (coresMudaram) Paleta(cb, {{QPalette::Text, c.ForeColor}, {QPalette::Base, c.BackColor}});
        break;
    }
    case TipoControle::Lista: {
        auto& lista = static_cast<const Lista&>(c);
        auto* l = static_cast<QListWidget*>(w);
        if (i.versaoLista != lista.Versao) {
            l->clear();
            for (const std::string& t : lista.Itens)
                l->addItem(Q(t));
            i.versaoLista = lista.Versao;
        }
        const int indice = lista.ListIndex < lista.ListCount() ? lista.ListIndex : -1;
        if (l->currentRow() != indice) l->setCurrentRow(indice);
        if (coresMudaram) Paleta(l, {{QPalette::Text, c.ForeColor}, {QPalette::Base, c.BackColor}});
        break;
    }
    case TipoControle::Botao: {
        auto* b = static_cast<QPushButton*>(w);
        const QString t = Q(static_cast<const Botao&>(c).Caption);
        if (b->text() != t) b->setText(t);
        break;
    }
    case TipoControle::Forma:
        static_cast<FormaQt*>(w)->Mostra(static_cast<const Forma&>(c));
        break;
    case TipoControle::Moldura:
        static_cast<MolduraQt*>(w)->Mostra(static_cast<const Moldura&>(c));
        if (coresMudaram) Paleta(w, {{QPalette::WindowText, c.ForeColor}});
        break;
    case TipoControle::Grade:
        SincronizaGrade(i);
        if (coresMudaram) Paleta(w, {{QPalette::Text, c.ForeColor}, {QPalette::Base, c.BackColor}});
        break;
    case TipoControle::BarraTitulo:
        static_cast<BarraTituloQt*>(w)->Mostra(static_cast<const BarraTitulo&>(c));
        break;
    }
}

namespace {

// 'coluna' when the view shows it, else the first shown after it, else the
// last shown before it.
int ColunaVisivel(const QTableView& v, int coluna) {
    const int n = v.model()->columnCount();
    for (int c = coluna; c < n; ++c)
        if (!v.isColumnHidden(c)) return c;
    for (int c = std::min(coluna, n) - 1; c >= 0; --c)
        if (!v.isColumnHidden(c)) return c;
    return coluna;
}

} // namespace

void VisaoTela::SincronizaGrade(Item& i) {
    auto& g = static_cast<const Grade&>(*i.controle);
    auto* v = static_cast<QTableView*>(i.widget);
    const ModeloGrade::Mudanca mudanca = i.grade->Atualiza();
    const bool estrutura = mudanca == ModeloGrade::Mudanca::Estrutura;
    // versaoLista stands for the grid's version whose widths are shown.
    if (mudanca != ModeloGrade::Mudanca::Nenhuma || i.versaoLista != g.Versao()) {
        const QFontMetrics fm(v->font());
        // Headers take the platform's header font unless told.
        if (v->horizontalHeader()->font() != v->font()) v->horizontalHeader()->setFont(v->font());
        v->verticalHeader()->setDefaultSectionSize(AlturaLinha(v->font()));
        for (int c = 0; c < g.Cols(); ++c) {
            const int ms = g.LarguraM(c);
            v->setColumnHidden(c, ms == 0);
            if (ms > 0) v->setColumnWidth(c, fm.horizontalAdvance(QString(ms, QLatin1Char('M'))));
        }
        i.versaoLista = g.Versao();
    }
    // The grid may make a zero-width column current (the marks' column):
    // the view shows the row on the nearest visible column instead, or
    // Up and Down would stop moving the highlighted row.
    const QModelIndex desejado =
        g.Row() >= 1 ? i.grade->index(g.Row() - 1, ColunaVisivel(*v, g.Col())) : QModelIndex();
    if (estrutura || v->currentIndex() != desejado) v->setCurrentIndex(desejado);
    if (desejado.isValid() && g.RowSel() != g.Row()) {
        const int de = std::min(g.Row(), g.RowSel()) - 1, ate = std::max(g.Row(), g.RowSel()) - 1;
        if (de >= 0)
            v->selectionModel()->select(
                QItemSelection(i.grade->index(de, 0), i.grade->index(ate, g.Cols() - 1)),
                QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

void VisaoTela::SincronizaMenus() {
    std::vector<ItemMenu*> todos = tela_.TodosOsMenus();
    if (todos != menus_) {
        for (Acao& a : acoes_)
            delete a.acao;
        acoes_.clear();
        menus_ = todos;
        for (ItemMenu* m : menus_) {
            const QKeySequence seq = SequenciaDe(m->Shortcut);
            if (seq.isEmpty()) continue;
            auto* a = new QAction(this);
            a->setShortcut(seq);
            a->setShortcutContext(Qt::WindowShortcut);
            connect(a, &QAction::triggered, this, [this, m] {
                previa_.valida = false;
                Encaminha("Click", [&] { Controle::Dispara(m->Click); });
            });
            addAction(a);
            acoes_.push_back({m, a});
        }
    }
    for (Acao& a : acoes_) {
        const QString t = Q(a.item->Caption);
        if (a.acao->text() != t) a.acao->setText(t);
        if (a.acao->isEnabled() != a.item->Enabled) a.acao->setEnabled(a.item->Enabled);
        if (a.acao->isVisible() != a.item->Visible) a.acao->setVisible(a.item->Visible);
    }
}

void VisaoTela::SincronizaFoco() {
    if (!isActiveWindow()) return;
    QWidget* w = WidgetDe(tela_.ActiveControl());
    if (!w || !w->isVisible() || !w->isEnabled()) return;
    QWidget* foco = focusWidget();
    if (foco != w && !w->isAncestorOf(foco)) w->setFocus(Qt::OtherFocusReason);
}

// ---- focus -------------------------------------------------------------

void VisaoTela::Ativa() {
    ativada_ = true;
    Encaminha("Form_Activate", [&] { tela_.Form_Activate(); });
    if (!tela_.Carregada()) return;
    Controle* alvo = tela_.ActiveControl();
    QWidget* w = WidgetDe(alvo);
    if (!w || !w->isEnabled() || !w->isVisibleTo(this) || w->focusPolicy() == Qt::NoFocus)
        alvo = tela_.ProximoNaOrdem(nullptr);
    if (alvo) FocaControle(*alvo, Qt::TabFocusReason);
}

void VisaoTela::FocaControle(Controle& c, Qt::FocusReason motivo) {
    QWidget* w = WidgetDe(&c);
    if (w && w->isEnabled() && w->isVisibleTo(this)) {
        MarcaFoco();
        // A field the screen sends the operator to is ready to be typed over,
        // as one entered by Tab: selected once it has the focus and its text
        // (the window may get the keyboard only later).
        selecionar_ = qobject_cast<QLineEdit*>(w);
        w->setFocus(motivo);
    }
    if (tela_.ActiveControl() != &c) Encaminha("GotFocus", [&] { tela_.RecebeFoco(c); });
}

void VisaoTela::ConfirmaFoco() {
    Controle* c = ControleDe(focusWidget());
    if (c && tela_.ActiveControl() != c) Encaminha("GotFocus", [&] { tela_.RecebeFoco(*c); });
}

// The screens are run from the keyboard and move the focus themselves (Enter
// as Tab, SetFocus): the focus is drawn as after a Tab, which Qt shows only
// when a real Tab key moved it.
void VisaoTela::MarcaFoco() { setAttribute(Qt::WA_KeyboardFocusChange); }

void VisaoTela::AvancaFoco() {
    MarcaFoco();
    focusNextChild();
    ConfirmaFoco();
}

void VisaoTela::DefineNoTopo(bool ligar) {
    Qt::WindowFlags f = windowFlags();
    f.setFlag(Qt::WindowStaysOnTopHint, ligar);
    if (f == windowFlags()) return;
    if (isVisible() && windowHandle()) {
        // Re-showing would end a modal exec(): tell the window system only.
        overrideWindowFlags(f);
        windowHandle()->setFlags(f);
        raise();
    } else {
        setWindowFlags(f);
    }
}

void VisaoTela::MostraMenu(ItemMenu& raiz, int x, int y) {
    QMenu menu(this);
    ItemMenu* escolhido = nullptr;
    std::function<void(QMenu&, ItemMenu&)> monta = [&](QMenu& m, ItemMenu& pai) {
        for (ItemMenu* f : pai.Filhos) {
            if (!f->Visible) continue;
            if (f->Caption == "-") {
                m.addSeparator();
            } else if (!f->Filhos.empty()) {
                QMenu* sub = m.addMenu(Q(f->Caption));
                sub->setEnabled(f->Enabled);
                monta(*sub, *f);
            } else {
                // The shortcut is shown, not registered: the window's actions own it.
                QString texto = Q(f->Caption);
                const QKeySequence seq = SequenciaDe(f->Shortcut);
                if (!seq.isEmpty()) texto += QLatin1Char('\t') + seq.toString(QKeySequence::NativeText);
                QAction* a = m.addAction(texto);
                a->setEnabled(f->Enabled);
                connect(a, &QAction::triggered, &menu, [&escolhido, f] { escolhido = f; });
            }
        }
    };
    monta(menu, raiz);
    if (menu.isEmpty()) return;
    menu.exec(mapToGlobal(QPoint(Px(x), Px(y))));
    if (escolhido) Encaminha("Click", [&] { Controle::Dispara(escolhido->Click); });
}

// ---- input -------------------------------------------------------------

// Key events reach the focus widget first and then climb to its parents;
// the screen hears each press once, from the first.
bool VisaoTela::PrimeiroReceptor(const QObject* o) const {
    const QWidget* foco = focusWidget();
    if (!foco || foco->window() != this) foco = this;
    return o == foco;
}

bool VisaoTela::ModeloConsome(QObject* o, const QKeyEvent& k) {
    if (!tela_.Carregada()) return true;
    const int codigo = CodigoTecla(k);
    // Tab belongs to the window system: the old one never showed it to a screen.
    if (codigo == 0 || (codigo == tecla::Tab && !(k.modifiers() & (Qt::ControlModifier | Qt::AltModifier))))
        return false;
    Controle* alvo = ControleDe(o);
    int resto = codigo;
    Encaminha("KeyDown", [&] { resto = tela_.Tecla(alvo, codigo, ModificadoresSistema(k.modifiers())); });
    return resto == 0 || !tela_.Carregada();
}

// A press arrives first as ShortcutOverride (before any shortcut is matched)
// and then, unless a shortcut took it, as KeyPress. The screen sees it at the
// first of the two; what it consumed neither fires a shortcut nor reaches
// the widget.
bool VisaoTela::Tecla(QObject* o, QKeyEvent& k, bool sobreposicao) {
    if (!PrimeiroReceptor(o)) return false;
    if (sobreposicao) {
        previa_ = {true, k.key(), k.modifiers(), ModeloConsome(o, k)};
        if (!previa_.consumida) return false;
        k.accept();
        return true;
    }
    bool consumida;
    if (previa_.valida && previa_.tecla == k.key() && previa_.mods == k.modifiers())
        consumida = previa_.consumida;
    else
        consumida = ModeloConsome(o, k);
    previa_.valida = false;
    if (consumida) return true;
    // Enter on a focused button presses it, as the old window system did.
    if ((k.key() == Qt::Key_Return || k.key() == Qt::Key_Enter) && !(k.modifiers() & ~Qt::KeypadModifier))
        if (auto* b = qobject_cast<QPushButton*>(o)) {
            b->click();
            return true;
        }
    return false;
}

bool VisaoTela::eventFilter(QObject* o, QEvent* e) {
    auto* w = qobject_cast<QWidget*>(o);
    if (!w || w->window() != this) return QDialog::eventFilter(o, e);
    switch (e->type()) {
    case QEvent::ShortcutOverride:
        return Tecla(o, static_cast<QKeyEvent&>(*e), true);
    case QEvent::KeyPress:
        return Tecla(o, static_cast<QKeyEvent&>(*e), false);
    case QEvent::KeyRelease:
        previa_.valida = false;
        break;
    case QEvent::FocusIn: {
        Item* i = ItemDe(o);
        if (!i || sincronizando_ || !tela_.Carregada()) break;
        if (tela_.ActiveControl() != i->controle)
            Encaminha("GotFocus", [&] { tela_.RecebeFoco(*i->controle); });
        else
            Sincroniza();
        selecionar_ = nullptr;
        break;
    }
    case QEvent::FocusOut:
        // A formatted field shows its format again. Only the field: the focus
        // is on its way elsewhere and must not be pulled back.
        if (Item* i = ItemDe(o); i && tela_.Carregada() && !sincronizando_) {
            // The field's selection goes with the focus (not with the window's):
            // entered again, it shows what the screen asks then, even when the
            // screen asks the same as last time.
            const Qt::FocusReason motivo = static_cast<QFocusEvent*>(e)->reason();
            if (motivo != Qt::ActiveWindowFocusReason && motivo != Qt::PopupFocusReason)
                i->selInicio = i->selTamanho = -1;
            Sincronizando guarda(sincronizando_);
            try {
                SincronizaItem(*i);
            } catch (...) {
            }
        }
        break;
    case QEvent::MouseButtonPress:
        gradeMudouNoClique_ = false;
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        if (auto* l = qobject_cast<QLabel*>(o); l && static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton)
            if (Item* i = ItemDe(l); i && i->tipo == TipoControle::Rotulo) {
                Controle* c = i->controle;
                const bool duplo = e->type() == QEvent::MouseButtonDblClick;
                Encaminha(duplo ? "DblClick" : "Click",
                          [&] { Controle::Dispara(duplo ? c->DblClick : c->Click); });
            }
        break;
    default:
        break;
    }
    return QDialog::eventFilter(o, e);
}

void VisaoTela::changeEvent(QEvent* e) {
    QDialog::changeEvent(e);
    if (e->type() != QEvent::ActivationChange) return;
    if (!isActiveWindow()) {
        ativada_ = false;
    } else if (!ativada_ && tela_.Carregada()) {
        ativada_ = true;
        Encaminha("Form_Activate", [&] { tela_.Form_Activate(); });
    }
}

void VisaoTela::closeEvent(QCloseEvent* e) {
    if (!tela_.Carregada()) {
        e->accept();
        return;
    }
    bool fechou = false;
    Encaminha("Form_QueryUnload", [&] { fechou = tela_.PedeFechamento(fechamento::MenuDeControle); });
    if (fechou)
        e->accept();
    else
        e->ignore();
}

} // namespace ztolvan
