# What `cmake --install` puts where. Everything finds everything else relative to itself, so that an
# installed copy may be moved as a whole.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(DOVA_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/dova)
set(DOVA_PAGE ${CMAKE_INSTALL_DATADIR}/dova2-web/page)

# The package's files beside its targets: the way to what it needs, and its version.
function(dova_install_package name)
  set(folder ${CMAKE_INSTALL_LIBDIR}/cmake/${name})
  configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/${name}Config.cmake.in
    ${CMAKE_BINARY_DIR}/${name}Config.cmake INSTALL_DESTINATION ${folder}
    PATH_VARS CMAKE_INSTALL_LIBDIR DOVA_HEADERS)
  write_basic_package_version_file(${CMAKE_BINARY_DIR}/${name}ConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
  install(FILES ${CMAKE_BINARY_DIR}/${name}Config.cmake
    ${CMAKE_BINARY_DIR}/${name}ConfigVersion.cmake DESTINATION ${folder})
endfunction()

function(dova_install_platform_library room)
  set_target_properties(dova_${room} PROPERTIES EXPORT_NAME ${room} INSTALL_RPATH "$ORIGIN")
  install(TARGETS dova_${room} EXPORT DovaPlatform DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(DIRECTORY include/ DESTINATION ${DOVA_HEADERS})
endfunction()

# The platform's libraries for find_package(DovaPlatform), as dova::wiro and so on.
function(dova_install_platform_package)
  install(EXPORT DovaPlatform NAMESPACE dova:: FILE DovaPlatformTargets.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/DovaPlatform)
  dova_install_package(DovaPlatform)
endfunction()

# The module, its headers and the page, for find_package(Dova2Web), as dova::web.
function(dova_install_web module)
  set_target_properties(${module} PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS ${module} DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/ DESTINATION ${DOVA_HEADERS})
  install(CODE "
    if(NOT EXISTS \"${CMAKE_SOURCE_DIR}/client/dist/index.html\")
      message(FATAL_ERROR \"the page is not built: make client\")
    endif()")
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/client/dist/ DESTINATION ${DOVA_PAGE})
  dova_install_package(Dova2Web)
endfunction()

function(dova_install_program program)
  file(RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(${program} PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
  install(TARGETS ${program} DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()
