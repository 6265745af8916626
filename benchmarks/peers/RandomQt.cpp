#if defined(TOLVANITE_PEER_QT)

#include <QRandomGenerator>
#include <cstddef>
#include <cstdint>

#include "../RandomDriver.h"

namespace bench {
namespace {

class Qt64 {
 public:
  std::uint64_t word() { return generator_.generate(); }

 private:
  QRandomGenerator64 generator_{static_cast<quint32>(commonSeed)};
};

class Qt {
 public:
  std::uint64_t upTo99() { return generator_.bounded(100U); }
  void fill(std::byte* bytes, std::size_t size) {
    generator_.fillRange(reinterpret_cast<quint64*>(bytes), static_cast<qsizetype>(size / 8));
  }

 private:
  QRandomGenerator generator_{static_cast<quint32>(commonSeed)};
};

const bool registered =
    registerRandom<Qt64>("qt_QRandomGenerator64") && registerRandom<Qt>("qt_QRandomGenerator");

}  // namespace
}  // namespace bench

#endif
