# Install rules. The console goes to sbin. The simulated host (simhost, its multi-call tool and its PAM
# module, with the scenarios compiled in) stays together in a package-private directory, because simhost
# finds its tool and module next to itself; a relative link puts simhost on the PATH. Then the man pages, the
# PAM service for a real host, the systemd template unit (installed, not enabled) and the licence.
set(TARN_STAGE ${PROJECT_BINARY_DIR}/install-stage)

# The console as Debian expects it, with the shared C++ runtime (see cmake/ConsoleLink.cmake).
if(TARGET tarn_packaged)
  install(TARGETS tarn_packaged RUNTIME DESTINATION ${CMAKE_INSTALL_SBINDIR})
else()
  install(TARGETS tarn RUNTIME DESTINATION ${CMAKE_INSTALL_SBINDIR})
endif()
install(TARGETS simhost simhost-tool RUNTIME DESTINATION ${TARN_PKGLIBEXECDIR})
install(TARGETS pam_simhost LIBRARY DESTINATION ${TARN_PKGLIBEXECDIR}
        PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

file(RELATIVE_PATH simhost_link ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBEXECDIR}/${PROJECT_NAME}/simhost)
file(MAKE_DIRECTORY ${TARN_STAGE})
file(CREATE_LINK ${simhost_link} ${TARN_STAGE}/simhost SYMBOLIC)
install(FILES ${TARN_STAGE}/simhost DESTINATION ${CMAKE_INSTALL_BINDIR})

# Man pages, compressed the way Debian ships them (gzip -9n: no name or time stamp, reproducible).
set(man_outputs "")
foreach(name tarn.8 simhost.1)
  string(REGEX REPLACE ".*\\." "" section ${name})
  configure_file(${PROJECT_SOURCE_DIR}/docs/man/${name}.in ${TARN_STAGE}/${name} @ONLY)
  add_custom_command(OUTPUT ${TARN_STAGE}/${name}.gz
                     COMMAND gzip -9n -c ${TARN_STAGE}/${name} > ${TARN_STAGE}/${name}.gz
                     DEPENDS ${TARN_STAGE}/${name} COMMENT "Compressing man page ${name}")
  list(APPEND man_outputs ${TARN_STAGE}/${name}.gz)
  install(FILES ${TARN_STAGE}/${name}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
endforeach()

# Debian wants every package's copyright and changelog in its doc directory.
configure_file(${PROJECT_SOURCE_DIR}/packaging/changelog.in ${TARN_STAGE}/changelog @ONLY)
add_custom_command(OUTPUT ${TARN_STAGE}/changelog.gz
                   COMMAND gzip -9n -c ${TARN_STAGE}/changelog > ${TARN_STAGE}/changelog.gz
                   DEPENDS ${TARN_STAGE}/changelog)
add_custom_target(tarn_docs ALL DEPENDS ${man_outputs} ${TARN_STAGE}/changelog.gz)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${TARN_STAGE}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The PAM service "tarn" on a real host, and the unit that runs the console on a virtual terminal.
install(FILES ${PROJECT_SOURCE_DIR}/packaging/tarn.pam DESTINATION ${CMAKE_INSTALL_FULL_SYSCONFDIR}/pam.d
        RENAME tarn)
# Under /usr this is systemd's own directory (/lib/systemd/system on Debian 12).
set(unit_dir ${CMAKE_INSTALL_PREFIX}/lib/systemd/system)
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  pkg_get_variable(unit_dir systemd systemdsystemunitdir)
  if(NOT unit_dir)
    set(unit_dir /lib/systemd/system)
  endif()
endif()
set(TARN_SYSTEMD_UNIT_DIR ${unit_dir} CACHE PATH "Where the systemd unit tarn@.service is installed")
configure_file(${PROJECT_SOURCE_DIR}/packaging/tarn@.service.in ${TARN_STAGE}/tarn@.service @ONLY)
install(FILES ${TARN_STAGE}/tarn@.service DESTINATION ${TARN_SYSTEMD_UNIT_DIR})
