# Puts together what the programs read: cmake -DSOURCES=… -DOUTPUT=… [-DLIBRARY=ON] -P assemble.cmake
if(LIBRARY)
  # What every kind has, in place of a line @ID_AND_POSITION@.
  set(place "type=\"int\" value=\"0\" min=\"-2048@QX110..|-512\" max=\"2048@QX110..|512\" singlestep=\"1\"")
  string(CONCAT ID_AND_POSITION
    "<property name=\"id\" type=\"int\" value=\"0\" min=\"0\" max=\"16777215\" singlestep=\"1\"/>\n"
    "    <property name=\"x_coordinate\" ${place} section=\"Place\"/>\n"
    "    <property name=\"y_coordinate\" ${place}/>")
  configure_file(${SOURCES} ${OUTPUT} @ONLY)
  file(TOUCH_NOCREATE ${OUTPUT})
  return()
endif()
# One chunk: what is local in a file is seen by those behind it.
set(script "")
foreach(source IN LISTS SOURCES)
  file(READ ${source} part)
  get_filename_component(name ${source} NAME)
  string(APPEND script "-- ${name}\n\n${part}\n")
endforeach()
string(REGEX REPLACE "\n+$" "\n" script "${script}")
file(WRITE ${OUTPUT} "${script}")
