// Keeps an observable object alive while it goes over its observers, at the price of a counter: its
// last owner may let it go from within a block, and it ends with the outermost pass.
#pragma once

#include <memory>

#include <Tolvanite/Frame/Types.h>

namespace tolvanite::detail {

/// The base of the observable reference types. One thread at a time.
class KeptDuringPasses {
 public:
  KeptDuringPasses(const KeptDuringPasses&) = delete;
  KeptDuringPasses& operator=(const KeptDuringPasses&) = delete;

  /// While one exists, so does the object. After the end of the last one the object may be gone.
  class Pass {
   public:
    explicit Pass(KeptDuringPasses& kept) noexcept : kept_(kept) { ++kept_.passes_; }
    Pass(const Pass&) = delete;
    Pass& operator=(const Pass&) = delete;
    ~Pass() {
      if (--kept_.passes_ == 0 && kept_.isReleased_) delete &kept_;
    }

   private:
    KeptDuringPasses& kept_;
  };

 protected:
  KeptDuringPasses() = default;
  virtual ~KeptDuringPasses() = default;

  /// The first owner of a new object.
  template <typename T>
  static std::shared_ptr<T> owned(T* object) {
    return std::shared_ptr<T>(object, [](KeptDuringPasses* kept) {
      if (kept->passes_ > 0) {
        kept->isReleased_ = true;
      } else {
        delete kept;
      }
    });
  }

 private:
  Int passes_ = 0;
  bool isReleased_ = false;
};

}  // namespace tolvanite::detail
