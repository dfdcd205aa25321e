# FindQwt: locates the Qt5 build of the Qwt plotting library.
# Defines Qwt_FOUND, Qwt_INCLUDE_DIR, Qwt_LIBRARY and the imported target Qwt::Qwt
# (global, so that every directory of the build can link it once it has been found).
find_path(Qwt_INCLUDE_DIR
  NAMES qwt_plot.h
  PATHS /usr/include/qwt /usr/include/qt5/qwt /usr/local/include/qwt
  PATH_SUFFIXES qwt)
find_library(Qwt_LIBRARY
  NAMES qwt-qt5 qwt6-qt5 qwt
  PATHS /usr/lib /usr/lib/x86_64-linux-gnu /usr/local/lib)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt REQUIRED_VARS Qwt_LIBRARY Qwt_INCLUDE_DIR)

if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
  find_package(Qt5 REQUIRED COMPONENTS Core Gui Widgets Svg PrintSupport Concurrent)
  add_library(Qwt::Qwt UNKNOWN IMPORTED GLOBAL)
  set_target_properties(Qwt::Qwt PROPERTIES
    IMPORTED_LOCATION ${Qwt_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${Qwt_INCLUDE_DIR}
    INTERFACE_LINK_LIBRARIES "Qt5::Widgets;Qt5::Svg;Qt5::PrintSupport;Qt5::Concurrent")
endif()
mark_as_advanced(Qwt_INCLUDE_DIR Qwt_LIBRARY)
