# find_package(Quorvel CONFIG REQUIRED) gives Quorvel::Quorvel, the dialogs with their sister
# libraries.
include("${CMAKE_CURRENT_LIST_DIR}/QuorvelTargets.cmake")
