#include "rele_latencia.h"

#include <arpa/inet.h>
#include <condition_variable>
#include <deque>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace ztolvan::bench {
namespace {

using Relogio = std::chrono::steady_clock;

// One direction of a connection: what was read, and when it may go on.
struct Sentido {
    std::mutex m;
    std::condition_variable cv;
    std::deque<std::pair<Relogio::time_point, std::string>> fila;
    bool fechado = false;
};

void SemAtraso(int s) {
    int um = 1;
    setsockopt(s, IPPROTO_TCP, TCP_NODELAY, &um, sizeof um);
}

// Reads from 'de', queueing each chunk with its time to leave.
void Le(int de, Sentido& s, std::chrono::microseconds atraso) {
    char buf[65536];
    for (;;) {
        const ssize_t n = read(de, buf, sizeof buf);
        std::lock_guard l(s.m);
        if (n <= 0) {
            s.fechado = true;
            s.cv.notify_one();
            return;
        }
        s.fila.emplace_back(Relogio::now() + atraso, std::string(buf, static_cast<size_t>(n)));
        s.cv.notify_one();
    }
}

// Writes each chunk to 'para' once its time has come.
void Escreve(int para, Sentido& s) {
    for (;;) {
        std::unique_lock l(s.m);
        s.cv.wait(l, [&] { return !s.fila.empty() || s.fechado; });
        if (s.fila.empty()) {
            shutdown(para, SHUT_WR);
            return;
        }
        auto [quando, dados] = std::move(s.fila.front());
        s.fila.pop_front();
        l.unlock();
        std::this_thread::sleep_until(quando);
        for (size_t feito = 0; feito < dados.size();) {
            const ssize_t n = write(para, dados.data() + feito, dados.size() - feito);
            if (n <= 0) return;
            feito += static_cast<size_t>(n);
        }
    }
}

} // namespace

ReleLatencia::ReleLatencia(const std::string& host, int porta, std::chrono::microseconds atraso)
    : host_(host), destino_(porta), atraso_(atraso) {
    escuta_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t t = sizeof a;
    if (escuta_ < 0 || bind(escuta_, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0 || listen(escuta_, 16) != 0 ||
        getsockname(escuta_, reinterpret_cast<sockaddr*>(&a), &t) != 0)
        throw std::runtime_error("relé: porta de escuta");
    porta_ = ntohs(a.sin_port);
    aceitador_ = std::thread([this] { Aceita(); });
}

ReleLatencia::~ReleLatencia() {
    fim_ = true;
    shutdown(escuta_, SHUT_RDWR);
    aceitador_.join();
    close(escuta_);
    {
        std::lock_guard l(mutex_);
        for (int s : sockets_)
            shutdown(s, SHUT_RDWR);
    }
    for (auto& f : fios_)
        f.join();
    for (int s : sockets_)
        close(s);
}

void ReleLatencia::Aceita() {
    while (!fim_) {
        const int cliente = accept(escuta_, nullptr, nullptr);
        if (cliente < 0) return;
        Liga(cliente);
    }
}

void ReleLatencia::Liga(int cliente) {
    const int servidor = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(static_cast<uint16_t>(destino_));
    inet_pton(AF_INET, host_.c_str(), &a.sin_addr);
    if (servidor < 0 || connect(servidor, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0) {
        close(cliente);
        if (servidor >= 0) close(servidor);
        return;
    }
    SemAtraso(cliente);
    SemAtraso(servidor);
    // Both directions live as long as the relay: a run opens few connections.
    auto ida = std::make_shared<Sentido>(), volta = std::make_shared<Sentido>();
    std::lock_guard l(mutex_);
    sockets_.push_back(cliente);
    sockets_.push_back(servidor);
    const auto atraso = atraso_;
    fios_.emplace_back([=] { Le(cliente, *ida, atraso); });
    fios_.emplace_back([=] { Escreve(servidor, *ida); });
    fios_.emplace_back([=] { Le(servidor, *volta, atraso); });
    fios_.emplace_back([=] { Escreve(cliente, *volta); });
}

} // namespace ztolvan::bench
