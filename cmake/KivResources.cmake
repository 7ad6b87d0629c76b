# kiv_add_resources(name list.qrc [files that the list names, when the build writes them])
# Makes KIV::<name> from a list of resources, which may be one that the build writes. Whoever links
# it, also through other libraries, has the resources without a call: the object file itself is
# linked, so no linker drops it as unused.
function(kiv_add_resources name list)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/qrc_${name}.cpp)
  add_custom_command(OUTPUT ${source}
    COMMAND Qt5::rcc --name kiv_${name} --output ${source} ${list}
    DEPENDS ${list} ${ARGN} COMMENT "Packing ${name}" VERBATIM)
  add_library(kiv_${name}_objects OBJECT ${source})
  target_link_libraries(kiv_${name}_objects PRIVATE Qt5::Core)
  add_library(kiv_${name} INTERFACE)
  add_library(KIV::${name} ALIAS kiv_${name})
  target_link_libraries(kiv_${name} INTERFACE
    kiv_${name}_objects $<TARGET_OBJECTS:kiv_${name}_objects>)
endfunction()
