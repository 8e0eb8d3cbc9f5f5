# Installation and the .deb.
#
#   lib/orvanta_cli/orvanta_cli, lib/orvanta_cli/crashpad_handler
#       side by side: the crash reporter looks for its handler in the
#       directory of the program's resolved path
#   bin/orvanta_cli -> ../lib/orvanta_cli/orvanta_cli
#   bin/orvanta_desktop_sim
#   share/man/man1/orvanta_cli.1.gz, orvanta_desktop_sim.1.gz
#   share/bash-completion/completions/orvanta_cli
#   share/zsh/vendor-completions/_orvanta_cli
#   share/fish/vendor_completions.d/orvanta_cli.fish
#   share/doc/orvanta-cli/{copyright,changelog.gz,examples/}
#
# The manual pages and completions are written by tools/docgen into
# ${CMAKE_BINARY_DIR}/doc.

set(ORVANTA_DOC_DIR ${CMAKE_BINARY_DIR}/doc)
# `cmake --install` and cpack take what is built; scripts/package builds the
# installed targets only, not the tests and benchmarks.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(ORVANTA_PACKAGE_NAME orvanta-cli)
set(ORVANTA_PACKAGE_DOC_DIR share/doc/${ORVANTA_PACKAGE_NAME})

# Compressed as Debian ships them; man and the installers read them as they are.
find_program(ORVANTA_GZIP gzip REQUIRED)
set(ORVANTA_COMPRESSED_DOCS
  ${ORVANTA_DOC_DIR}/man1/orvanta_cli.1.gz
  ${ORVANTA_DOC_DIR}/man1/orvanta_desktop_sim.1.gz
  ${ORVANTA_DOC_DIR}/changelog.gz)
add_custom_command(
  OUTPUT ${ORVANTA_COMPRESSED_DOCS}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${ORVANTA_DOC_DIR}/man1
  COMMAND ${ORVANTA_GZIP} -9nc ${ORVANTA_DOC_DIR}/orvanta_cli.1 > ${ORVANTA_DOC_DIR}/man1/orvanta_cli.1.gz
  COMMAND ${ORVANTA_GZIP} -9nc ${ORVANTA_DOC_DIR}/orvanta_desktop_sim.1 > ${ORVANTA_DOC_DIR}/man1/orvanta_desktop_sim.1.gz
  COMMAND ${ORVANTA_GZIP} -9nc ${PROJECT_SOURCE_DIR}/doc/changelog > ${ORVANTA_DOC_DIR}/changelog.gz
  DEPENDS ${ORVANTA_DOC_DIR}/orvanta_cli.1 ${ORVANTA_DOC_DIR}/orvanta_desktop_sim.1
          ${PROJECT_SOURCE_DIR}/doc/changelog orvanta_docs
  COMMENT "Compressing the manual pages and the changelog")
add_custom_target(orvanta_compressed_docs ALL DEPENDS ${ORVANTA_COMPRESSED_DOCS})

# The link is made in the build tree and installed as a link.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/install-links)
file(CREATE_LINK ../lib/orvanta_cli/orvanta_cli ${CMAKE_BINARY_DIR}/install-links/orvanta_cli SYMBOLIC)

install(TARGETS orvanta_cli crashpad_handler RUNTIME DESTINATION lib/orvanta_cli)
install(FILES ${CMAKE_BINARY_DIR}/install-links/orvanta_cli DESTINATION bin)
install(TARGETS orvanta_desktop_sim RUNTIME DESTINATION bin)
install(FILES ${ORVANTA_DOC_DIR}/man1/orvanta_cli.1.gz ${ORVANTA_DOC_DIR}/man1/orvanta_desktop_sim.1.gz
  DESTINATION share/man/man1)
install(FILES ${ORVANTA_DOC_DIR}/completions/orvanta_cli.bash
  DESTINATION share/bash-completion/completions RENAME orvanta_cli)
install(FILES ${ORVANTA_DOC_DIR}/completions/_orvanta_cli DESTINATION share/zsh/vendor-completions)
install(FILES ${ORVANTA_DOC_DIR}/completions/orvanta_cli.fish DESTINATION share/fish/vendor_completions.d)
install(FILES ${PROJECT_SOURCE_DIR}/doc/copyright ${ORVANTA_DOC_DIR}/changelog.gz
  DESTINATION ${ORVANTA_PACKAGE_DOC_DIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${ORVANTA_PACKAGE_DOC_DIR}/examples
  USE_SOURCE_PERMISSIONS)
install(FILES ${PROJECT_SOURCE_DIR}/doc/lintian-overrides
  DESTINATION share/lintian/overrides RENAME ${ORVANTA_PACKAGE_NAME})

# The .deb: scripts/package. Its Depends line comes from dpkg-shlibdeps over
# the installed programs.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${ORVANTA_PACKAGE_NAME})
set(CPACK_PACKAGE_VERSION 1.2.93.667)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Control Orvanta from the command line")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "orvanta_cli drives the Orvanta desktop music client that runs on the same\n"
  "machine through its local Partner API: playback, search, the library,\n"
  "playlists and folders, devices, the queue, Rondo sessions and Podroom\n"
  "publishing, with text or JSON output for scripts.\n"
  "The package also holds orvanta_desktop_sim, a simulator of the desktop\n"
  "client's side of the protocol for trying and testing scripts.")
string(REPLACE ";" "" CPACK_DEBIAN_PACKAGE_DESCRIPTION "${CPACK_DEBIAN_PACKAGE_DESCRIPTION}")
set(CPACK_PACKAGE_CONTACT "Orvanta CLI developers <cli@orvanta.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
include(CPack)
