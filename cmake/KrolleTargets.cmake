# Shared helpers for the targets of this tree.

# Warnings on for our own code only.
function(krolle_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()

# Collect the sources of one source folder (recursively).
function(krolle_collect_sources out_var)
  set(result)
  foreach(dir ${ARGN})
    file(GLOB_RECURSE found CONFIGURE_DEPENDS
         "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.cpp"
         "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.h")
    list(APPEND result ${found})
  endforeach()
  set(${out_var} ${result} PARENT_SCOPE)
endfunction()
