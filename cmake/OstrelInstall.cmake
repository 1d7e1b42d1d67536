# Installs the libraries, their headers and a package that find_package(ostrel) finds.
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY OSTREL_LIBRARIES)
install(TARGETS ${libraries} EXPORT ostrelTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT ostrelTargets NAMESPACE ostrel:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ostrel)

set(folders platform/base common)
set(umbrellas Common.h)
if(OSTREL_BUILD_GUI)
  list(APPEND folders platform/drawing platform/window platform/display gui testing)
  list(APPEND umbrellas GUI.h)
endif()
foreach(folder IN LISTS folders)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/ostrel/${folder}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ostrel/${folder}
    FILES_MATCHING PATTERN "*.h" PATTERN "x11" EXCLUDE PATTERN "text" EXCLUDE)
endforeach()
foreach(umbrella IN LISTS umbrellas)
  install(FILES ${PROJECT_SOURCE_DIR}/ostrel/${umbrella} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ostrel)
endforeach()

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ostrelConfig.cmake.in
  ${PROJECT_BINARY_DIR}/ostrelConfig.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ostrel)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ostrelConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ostrelConfig.cmake ${PROJECT_BINARY_DIR}/ostrelConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ostrel)
