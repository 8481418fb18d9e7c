// The largest block that a piece of work takes from the heap.
//
//   LargestAllocation watch;
//   DecodeGridPage(bytes);
//   EXPECT_LE(watch.Bytes(), 4 * bytes.size());
#pragma once

#include <cstddef>

namespace quorvel::test {

/// Watches what `new` gives from its construction on; one at a time.
class LargestAllocation {
public:
  LargestAllocation();
  std::size_t Bytes() const;
};

}  // namespace quorvel::test
