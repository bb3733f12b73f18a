# What `cmake --install` puts where, and the Debian package that CPack makes of it. The tree can be moved as a whole: the
# command finds the host library by its own place, the host library the module by its own.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(wrl_header_dir "${CMAKE_INSTALL_INCLUDEDIR}/wrl")
set(wrl_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/wrl")

# Targets. The module is nothing to link with, so it stands in a folder of its own.
install(TARGETS modelwrl EXPORT wrlTargets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/wrl")
install(TARGETS wrl_host EXPORT wrlTargets INCLUDES DESTINATION "${wrl_header_dir}")
if(TARGET vekhost)
  install(TARGETS vekhost EXPORT wrlTargets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
endif()
if(TARGET wrl)
  file(RELATIVE_PATH way "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  set_target_properties(wrl PROPERTIES INSTALL_RPATH "$ORIGIN/${way}")
  install(TARGETS wrl EXPORT wrlTargets RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()

# Headers: the host's declarations, the entry points, and of the embedded host what a program around it calls.
if(NOT WRL_HOST_INCLUDE_DIR)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/host/" DESTINATION "${wrl_header_dir}" FILES_MATCHING PATTERN "*.h")
endif()
install(FILES "${PROJECT_SOURCE_DIR}/entry/loadModelWRL.h" "${PROJECT_SOURCE_DIR}/entry/writeModelWRL.h"
  DESTINATION "${wrl_header_dir}/entry")
if(TARGET vekhost)
  foreach(header AssemblyBuilder LoaderSettings MessageSink ModuleLoader SceneDocument StageDocument images/ImageFile
          images/Raster)
    get_filename_component(folder "embedded/${header}" DIRECTORY)
    install(FILES "${PROJECT_SOURCE_DIR}/embedded/${header}.h" DESTINATION "${wrl_header_dir}/${folder}")
  endforeach()
endif()

# How other builds find it.
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/wrlConfig.cmake.in" "${PROJECT_BINARY_DIR}/wrlConfig.cmake"
  INSTALL_DESTINATION "${wrl_package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/wrlConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/wrlConfig.cmake" "${PROJECT_BINARY_DIR}/wrlConfigVersion.cmake"
  DESTINATION "${wrl_package_dir}")
install(EXPORT wrlTargets NAMESPACE wrl:: DESTINATION "${wrl_package_dir}")
if(TARGET vekhost)
  file(RELATIVE_PATH WRL_PC_PREFIX "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/wrl.pc.in" "${PROJECT_BINARY_DIR}/wrl.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/wrl.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endif()

# What the command says of itself, for man and the shells.
if(TARGET wrl AND NOT CMAKE_CROSSCOMPILING)
  set(shared "${PROJECT_BINARY_DIR}/share")
  install(FILES "${shared}/wrl.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
  install(FILES "${shared}/wrl.bash" DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME wrl)
  install(FILES "${shared}/_wrl" DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/site-functions")
  install(FILES "${shared}/wrl.fish" DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
endif()

# Documents and examples; the licence under the name that Debian wants.
install(FILES "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
file(READ "${PROJECT_SOURCE_DIR}/LICENSE" copyright)
get_property(viewer_licence GLOBAL PROPERTY WRL_VIEWER_LICENCE)
if(viewer_licence)
  # The command holds it, and so does every HTML page that it writes.
  file(READ "${viewer_licence}" viewer_licence)
  string(APPEND copyright "\nThe viewer inside wrl and inside the HTML pages that it writes holds three.js:\n\n${viewer_licence}")
endif()
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/copyright" CONTENT "${copyright}" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/copyright" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
  FILES_MATCHING PATTERN "*.md" PATTERN "*.png")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

# The Debian package. What it depends on is asked of the built files.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME wrl)
set(CPACK_PACKAGE_CONTACT "the wrl authors <wrl@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION "wrl reads VRML97 worlds, says what they hold and what is wrong with them, and writes them back.
It runs a loadable module in a small open host; module, host library, headers and package files are included.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Opened at run time by the library that is linked, where there is no graphics card: pictures want it, nothing else does.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS libgl1-mesa-dri)
include(CPack)
