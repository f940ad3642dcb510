# Installs the build tree BUILD into FIRST and moves the copy to PREFIX.
file(REMOVE_RECURSE ${FIRST} ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${FIRST}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${FIRST} ${PREFIX})
# A page that is told from the one in the tree.
file(REMOVE ${PREFIX}/share/dova2-web/page/index.html.br ${PREFIX}/share/dova2-web/page/index.html.gz)
file(APPEND ${PREFIX}/share/dova2-web/page/index.html "<!-- installed -->\n")
