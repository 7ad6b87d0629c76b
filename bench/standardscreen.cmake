# The screen that all renderers are measured with; included by every benchmark that draws it.
if(NOT TARGET kiv_standardscreen)
  add_library(kiv_standardscreen STATIC EXCLUDE_FROM_ALL
    ${CMAKE_CURRENT_LIST_DIR}/StandardScreen.cpp ${CMAKE_CURRENT_LIST_DIR}/StandardScreen.h)
  add_library(KIV::StandardScreen ALIAS kiv_standardscreen)
  target_include_directories(kiv_standardscreen PUBLIC ${CMAKE_CURRENT_LIST_DIR})
  target_link_libraries(kiv_standardscreen PRIVATE KIV::Warnings)
endif()
