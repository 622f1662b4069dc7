# The generated header BuildConfig.h: the installed layout as the programs need to know it, so that no source
# repeats the install rules. The version comes from project() alone, as the compile definition TARN_VERSION.
set(TARN_PKGLIBEXECDIR ${CMAKE_INSTALL_LIBEXECDIR}/${PROJECT_NAME})
file(RELATIVE_PATH TARN_SIMHOST_DIR_FROM_SBIN ${CMAKE_INSTALL_FULL_SBINDIR}
     ${CMAKE_INSTALL_FULL_LIBEXECDIR}/${PROJECT_NAME})
configure_file(${CMAKE_CURRENT_LIST_DIR}/BuildConfig.h.in ${PROJECT_BINARY_DIR}/generated/BuildConfig.h @ONLY)
# Only the host selection reads it; other targets keep their compile flags (and their cached objects).
target_include_directories(tarn_platform PRIVATE ${PROJECT_BINARY_DIR}/generated)
