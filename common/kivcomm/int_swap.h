// Exchanging two whole numbers.
//
//   int low = 9, high = 3;
//   __KivComm_IntSwap(&low, &high);   // low is 3, high is 9
#pragma once

#include "kivcomm/kivcomm_export.h"

/// Exchanges `*first` and `*second`. Does nothing when either pointer is null or both are the same.
KIVCOMM_API void __KivComm_IntSwap(int* first, int* second);
