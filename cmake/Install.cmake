# `make dist`: the DLLs and host programs in bin/, headers, import libraries and the CMake package.
include(CMakePackageConfigHelpers)

set(product Frame64 KivComm64 KivData64 KivFcl64 Quorvel QuorvelC64)
install(
  TARGETS ${product}
  EXPORT QuorvelTargets
  RUNTIME DESTINATION bin
  ARCHIVE DESTINATION lib)
install(TARGETS quorvel_cli quorvel_gallery RUNTIME DESTINATION bin)

# The compiler's run-time, shared by all of them so that exceptions cross from DLL to DLL.
execute_process(
  COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++-6.dll
  OUTPUT_VARIABLE libstdcxx
  OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(runtime_folder ${libstdcxx} DIRECTORY)
set(runtime_dlls ${runtime_folder}/libstdc++-6.dll ${runtime_folder}/libgcc_s_seh-1.dll
                 /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll)
# Without the symbols that Debian leaves in them, which are nine tenths of their bytes. Beside the
# build's own programs too, so that they start where they are built.
foreach(dll ${runtime_dlls})
  get_filename_component(name ${dll} NAME)
  set(stripped ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name})
  file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  execute_process(
    COMMAND ${CMAKE_STRIP} --strip-unneeded -o ${stripped} ${dll}
    COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${stripped} DESTINATION bin)
endforeach()

install(DIRECTORY app/include/quorvel DESTINATION include)
# Exactly the headers that quorvel.h includes.
install(FILES common/framework/base_types.h common/framework/collections.h
              common/framework/cstring.h common/framework/errors.h
              common/framework/frame_export.h common/framework/geometry.h
        DESTINATION include/quorvel/framework)
install(FILES common/kivdata/kiv_font.h
              common/kivdata/kiv_font_ex.h
              common/kivdata/kiv_registry.h
              common/kivdata/kivdata_export.h
              common/kivdata/layout_cel_data.h
              common/kivdata/layout_ex_page_data.h
              common/kivdata/layout_page_data.h
              common/kivdata/pen_status.h
              common/kivdata/sys_env.h
              common/kivdata/val_info_one_data.h
        DESTINATION include/quorvel/kivdata)

install(
  EXPORT QuorvelTargets
  NAMESPACE Quorvel::
  DESTINATION lib/cmake/Quorvel)
write_basic_package_version_file(QuorvelConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES cmake/QuorvelConfig.cmake ${PROJECT_BINARY_DIR}/QuorvelConfigVersion.cmake
        DESTINATION lib/cmake/Quorvel)

configure_file(cmake/Package.cmake.in Package.cmake @ONLY)
