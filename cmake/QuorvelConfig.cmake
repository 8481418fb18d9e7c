# find_package(Quorvel CONFIG REQUIRED) gives Quorvel::Quorvel, the dialogs with their sister
# libraries, and Quorvel::QuorvelC64, the same for hosts in C and other languages.
include("${CMAKE_CURRENT_LIST_DIR}/QuorvelTargets.cmake")
