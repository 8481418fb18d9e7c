#include "kivcomm/int_swap.h"

#include <utility>

void __KivComm_IntSwap(int* first, int* second) {
  if (first != nullptr && second != nullptr) {
    std::swap(*first, *second);
  }
}
