# The Qt Solutions property browser as the static library KIV::PropertyBrowser, built from sources
# that scripts/fetch-propertybrowser.sh puts under build/. All presets share that one copy. Without
# the sources there is no target, and a module that needs it says so when CMake configures.
# A copy of one's own is named in the environment or with -DQTPROPERTYBROWSER_DIR.
set(fetched ${CMAKE_SOURCE_DIR}/build/third-party/qtpropertybrowser)
if(DEFINED ENV{QTPROPERTYBROWSER_DIR})
  set(fetched $ENV{QTPROPERTYBROWSER_DIR})
endif()
set(QTPROPERTYBROWSER_DIR ${fetched} CACHE PATH
  "Folder of the Qt Solutions property browser (the one that holds src/qttreepropertybrowser.h)")

if(NOT EXISTS ${QTPROPERTYBROWSER_DIR}/src/qttreepropertybrowser.h)
  message(STATUS "No property browser in ${QTPROPERTYBROWSER_DIR}: "
    "run scripts/fetch-propertybrowser.sh or set QTPROPERTYBROWSER_DIR")
  return()
endif()

set(sources "")
foreach(name qtbuttonpropertybrowser qteditorfactory qtgroupboxpropertybrowser qtpropertybrowser
    qtpropertybrowserutils qtpropertymanager qttreepropertybrowser qtvariantproperty)
  list(APPEND sources ${QTPROPERTYBROWSER_DIR}/src/${name}.cpp)
endforeach()

add_library(qtpropertybrowser STATIC ${sources} ${QTPROPERTYBROWSER_DIR}/src/qtpropertybrowser.qrc)
add_library(KIV::PropertyBrowser ALIAS qtpropertybrowser)
set_target_properties(qtpropertybrowser PROPERTIES AUTOMOC ON AUTORCC ON CXX_CLANG_TIDY "")
target_include_directories(qtpropertybrowser SYSTEM PUBLIC ${QTPROPERTYBROWSER_DIR}/src)
target_compile_options(qtpropertybrowser PRIVATE -w)
target_link_libraries(qtpropertybrowser PUBLIC Qt5::Widgets)
