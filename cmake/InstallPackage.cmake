# What `cmake --install` copies: the library, the headers, the CMake package and the pkg-config file. The installed tree
# may be moved as a whole. Absolute install directories are honoured; a tree with such directories stays where it is.
include(CMakePackageConfigHelpers)

install(
  TARGETS alidade
  EXPORT alidadeTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/include/alidade
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING
  PATTERN "*.h")
install(
  FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
        ${PROJECT_SOURCE_DIR}/LICENSE
  DESTINATION ${CMAKE_INSTALL_DOCDIR})
# What the README links to lies beside it there, too.
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples
  DESTINATION ${CMAKE_INSTALL_DOCDIR}
  PATTERN "Doxyfile" EXCLUDE)

# CMake package: find_package(alidade) gives alidade::alidade.
set(alidade_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/alidade)
install(
  EXPORT alidadeTargets
  NAMESPACE alidade::
  DESTINATION ${alidade_cmake_dir})
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/alidadeConfig.cmake.in ${PROJECT_BINARY_DIR}/package/alidadeConfig.cmake
  INSTALL_DESTINATION ${alidade_cmake_dir}
  NO_SET_AND_CHECK_MACRO)
# A change of any result bit is a change of the major version, so the same major version is compatible.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/alidadeConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/alidadeConfig.cmake ${PROJECT_BINARY_DIR}/package/alidadeConfigVersion.cmake
        DESTINATION ${alidade_cmake_dir})

# pkg-config: the prefix is found from the place of the file itself, so that the tree can be moved.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(alidade_pc_prefix ${CMAKE_INSTALL_PREFIX})
  set(alidade_pc_libdir ${CMAKE_INSTALL_LIBDIR})
else()
  file(RELATIVE_PATH alidade_pc_up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  string(REGEX REPLACE "/$" "" alidade_pc_prefix "\${pcfiledir}/${alidade_pc_up}")
  set(alidade_pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE ${CMAKE_INSTALL_INCLUDEDIR})
  set(alidade_pc_includedir ${CMAKE_INSTALL_INCLUDEDIR})
else()
  set(alidade_pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
set(alidade_pc_definitions "")
if(NOT BUILD_SHARED_LIBS)
  set(alidade_pc_definitions " -DALIDADE_STATIC")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/alidade.pc.in ${PROJECT_BINARY_DIR}/package/alidade.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/package/alidade.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
