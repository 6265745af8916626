// Finds the index of an element whose box a hash table knows, in an array that nobody sorts: it is
// sought from where it was last seen.
#pragma once

#include <cstdlib>

#include <Tolvanite/DataStructures/detail/ElementStore.h>
#include <Tolvanite/DataStructures/detail/ElementTable.h>

namespace tolvanite::detail {

/// Kept beside an array and its table.
class IndexSeeker {
 public:
  /// The index of the box at a spot of the table, or -1. When the elements have drifted so far that
  /// the seeking costs more than to note all indexes anew, that is done. `mayNote` is false for a
  /// table that copies share: it must not change under them.
  template <typename T, typename Keying>
  Int indexAt(typename ElementTable<T, Keying>::Spot spot, const ElementTable<T, Keying>& table,
              const ElementStore<T>& array, bool mayNote = true) {
    const Box<T>* box = table.boxAt(spot);
    const Int guess = table.lastIndexAt(spot);
    if (array.isAt(guess, box)) return guess;
    const Int index = array.findNear(box, guess);
    if (index < 0 || !mayNote) return index;
    table.setLastIndexAt(spot, index);
    sought_ += std::abs(index - guess);
    if (sought_ > 512 * array.count()) {
      sought_ = 0;
      for (Int i = 0; i < array.count(); ++i) {
        table.setLastIndexAt(table.spotOf(Keying::keyOf(array[i])), i);
      }
    }
    return index;
  }

 private:
  // How far elements were sought since their indexes were noted last.
  Int sought_ = 0;
};

}  // namespace tolvanite::detail
