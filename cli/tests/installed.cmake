# What is installed works by itself: exports an example and has the player that draws it.
file(REMOVE_RECURSE ${FOLDER})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${FOLDER}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
set(package ${FOLDER}/package)
execute_process(COMMAND ${FOLDER}/panel-export ${FOLDER}/examples/thermostat/thermostat.nyx
  --package ${package} COMMAND_ERROR_IS_FATAL ANY)
foreach(file ${package}/panel.c ${FOLDER}/firmware/kiv_panel.c)
  execute_process(COMMAND ${COMPILER} -std=c99 -Werror -c ${file} -o ${package}/object
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
