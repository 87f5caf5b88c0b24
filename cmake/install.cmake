# What `cmake --install` puts where. Components: runtime (what programs need to run), development, tools.
# Files of both Windows libraries and of Linux may share a prefix: no name occurs twice with different contents.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/vexlor32)

if(WIN32)
  set(pc_bits ${bits})
  install(TARGETS vexlor32 RUNTIME COMPONENT runtime ARCHIVE EXCLUDE_FROM_ALL COMPONENT unused)
  install(FILES ${import_library} TYPE LIB COMPONENT development)
  # For Microsoft's and compatible linkers; its own counterpart cannot map decorated names to undecorated exports.
  find_program(LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 llvm-dlltool-15 llvm-dlltool-16)
  if(LLVM_DLLTOOL)
    set(msvc_library ${CMAKE_BINARY_DIR}/Vexlor${bits}.lib)
    set(machine i386 -k)
    if(bits EQUAL 64)
      set(machine i386:x86-64)
    endif()
    add_custom_command(OUTPUT ${msvc_library} COMMAND ${LLVM_DLLTOOL} -m ${machine} -d ${import_def} -l ${msvc_library}
      DEPENDS ${import_def} VERBATIM)
    add_custom_target(msvc_import_library ALL DEPENDS ${msvc_library})
    install(FILES ${msvc_library} TYPE LIB COMPONENT development)
  else()
    message(STATUS "No llvm-dlltool: the import library for MSVC is left out (scripts/setup packages)")
  endif()
else()
  set(pc_bits 32)
  install(TARGETS vexlor32 LIBRARY COMPONENT runtime NAMELINK_SKIP)
  install(FILES $<TARGET_FILE:vexlor32_link> TYPE LIB COMPONENT development)
  install(FILES ${PROJECT_SOURCE_DIR}/cmake/install/linker_script.so RENAME libvexlor32.so TYPE LIB COMPONENT development)
endif()

install(FILES ${PROJECT_SOURCE_DIR}/include/vexlor32.h ${generated}/bindings/cpp/vexlor32.hpp
  ${generated}/bindings/cpp/vexlor32_detail.hpp TYPE INCLUDE COMPONENT development)
file(RELATIVE_PATH pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" pc_to_prefix "${pc_to_prefix}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/install/vexlor.pc.in ${generated}/vexlor${pc_bits}.pc @ONLY)
install(FILES ${generated}/vexlor${pc_bits}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/install/config.cmake.in ${generated}/vexlor32Config.cmake
  INSTALL_DESTINATION ${config_folder}
  PATH_VARS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_BINDIR CMAKE_INSTALL_INCLUDEDIR
  NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${generated}/vexlor32ConfigVersion.cmake
  VERSION ${VEXLOR_VERSION} COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
install(FILES ${generated}/vexlor32Config.cmake ${generated}/vexlor32ConfigVersion.cmake
  DESTINATION ${config_folder} COMPONENT development)

if(TARGET vexlor)
  file(RELATIVE_PATH to_libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(vexlor PROPERTIES INSTALL_RPATH "$ORIGIN/${to_libraries}")
  install(TARGETS vexlor RUNTIME COMPONENT tools)
  set(shell_files vexlor.1 vexlor.bash _vexlor vexlor.fish)
  list(TRANSFORM shell_files PREPEND ${CMAKE_BINARY_DIR}/shell/)
  add_custom_command(OUTPUT ${shell_files}
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/cli/shell_files.py $<TARGET_FILE:vexlor> ${CMAKE_BINARY_DIR}/shell
    DEPENDS vexlor ${PROJECT_SOURCE_DIR}/cli/shell_files.py COMMENT "Manual page and completions" VERBATIM)
  add_custom_target(shell_files ALL DEPENDS ${shell_files})
  install(FILES ${CMAKE_BINARY_DIR}/shell/vexlor.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
  install(FILES ${CMAKE_BINARY_DIR}/shell/vexlor.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME vexlor COMPONENT tools)
  install(FILES ${CMAKE_BINARY_DIR}/shell/_vexlor DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT tools)
  install(FILES ${CMAKE_BINARY_DIR}/shell/vexlor.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tools)
endif()
