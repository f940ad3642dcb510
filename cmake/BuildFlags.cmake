# Flags that every target of the tree is built with.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(DOVA_WERROR)
  add_compile_options(-Werror)
endif()
if(DOVA_SANITIZE)
  add_compile_options(-fsanitize=${DOVA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${DOVA_SANITIZE})
endif()
if(DOVA_SANITIZE MATCHES address)
  # For tests of how much memory there is; compilers tell in different ways.
  add_compile_definitions(DOVA_ADDRESS_SANITIZER)
endif()
if(DOVA_SANITIZE MATCHES thread)
  # The sanitizer does not know fences and says so; Asio's queues are locked, with or without them.
  add_compile_definitions(BOOST_ASIO_DISABLE_FENCED_BLOCK)
endif()
if(NOT DOVA_SANITIZE)
  # A missing symbol of a shared library is an error of its own link, not of its user's start.
  add_link_options(-Wl,--no-undefined)
endif()
# What the tests test is optimised in a release build, they themselves are not: that takes longer than they run.
set(DOVA_TEST_OPTIONS $<$<CONFIG:Release>:-O0>)
# Qt's words "emit", "signals", "slots" and "foreach" are names like others in this tree.
add_compile_definitions(QT_NO_KEYWORDS QT_NO_FOREACH)
