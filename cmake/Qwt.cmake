# Qwt's own pkg-config file asks for Qt's OpenGL module, which nothing here needs: find header and library.
find_path(QWT_INCLUDE_DIR qwt_plot.h PATH_SUFFIXES qwt qwt-qt5 REQUIRED)
find_library(QWT_LIBRARY NAMES qwt-qt5 qwt REQUIRED)
add_library(Qwt::Qwt UNKNOWN IMPORTED)
set_target_properties(Qwt::Qwt PROPERTIES
    IMPORTED_LOCATION "${QWT_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}"
    INTERFACE_COMPILE_DEFINITIONS QWT_DLL)
target_link_libraries(Qwt::Qwt INTERFACE Qt5::Widgets Qt5::Svg Qt5::PrintSupport)
