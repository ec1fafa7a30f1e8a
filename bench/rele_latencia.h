#pragma once
// A loopback relay in front of a database server that holds every chunk it
// forwards for a fixed delay each way: a store network's latency, on one
// machine. Chunks keep flowing while earlier ones wait, as on a real link.
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace ztolvan::bench {

class ReleLatencia {
  public:
    ReleLatencia(const std::string& host, int porta, std::chrono::microseconds atraso);
    ~ReleLatencia();
    ReleLatencia(const ReleLatencia&) = delete;
    ReleLatencia& operator=(const ReleLatencia&) = delete;
    // The loopback port clients connect to.
    int Porta() const { return porta_; }

  private:
    void Aceita();
    void Liga(int cliente);

    std::string host_;
    int destino_;
    std::chrono::microseconds atraso_;
    int escuta_ = -1;
    int porta_ = 0;
    std::atomic<bool> fim_{false};
    std::mutex mutex_;
    std::vector<int> sockets_;
    std::vector<std::thread> fios_;
    std::thread aceitador_;
};

} // namespace ztolvan::bench
