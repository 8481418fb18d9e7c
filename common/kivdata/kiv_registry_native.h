// What tests may do to the stand-in for the registry, which keeps the values in this process.
//
//   ClearRegistry();
//   const RegistryFault fault(RegistryFault::Of::kWriting);   // until the end of the block
#pragma once

namespace quorvel {

/// Forgets every value.
void ClearRegistry();

/// While it lives, one kind of call fails. One at a time; not for several threads, as nothing of
/// the stand-in is.
class RegistryFault {
public:
  enum class Of {
    kReading,  ///< LoadRegistryValue throws
    kWriting,  ///< StoreRegistryValue returns false
  };

  explicit RegistryFault(Of failing);
  ~RegistryFault();
  RegistryFault(const RegistryFault&) = delete;
  RegistryFault& operator=(const RegistryFault&) = delete;
};

}  // namespace quorvel
