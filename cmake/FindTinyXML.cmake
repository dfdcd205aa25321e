# FindTinyXML: locates TinyXML 2.6 as installed by Debian.
# Defines TinyXML_FOUND and the imported target TinyXML::TinyXML (global). Debian builds the
# library with STL support, so every user of its header must see TIXML_USE_STL as well (the
# class layouts and signatures depend on it); the target carries that definition.
find_path(TinyXML_INCLUDE_DIR NAMES tinyxml.h)
find_library(TinyXML_LIBRARY NAMES tinyxml)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(TinyXML REQUIRED_VARS TinyXML_LIBRARY TinyXML_INCLUDE_DIR)

if(TinyXML_FOUND AND NOT TARGET TinyXML::TinyXML)
  add_library(TinyXML::TinyXML UNKNOWN IMPORTED GLOBAL)
  set_target_properties(TinyXML::TinyXML PROPERTIES
    IMPORTED_LOCATION ${TinyXML_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${TinyXML_INCLUDE_DIR}
    INTERFACE_COMPILE_DEFINITIONS TIXML_USE_STL)
endif()
mark_as_advanced(TinyXML_INCLUDE_DIR TinyXML_LIBRARY)
