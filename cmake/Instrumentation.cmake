# Sanitizers and fuzzing instrument everything that is compiled after this file
# is included, so no target can be left out.
if(FDMORPH_SANITIZE)
  add_compile_options(
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(FDMORPH_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
# The programs are large then, and GNU ld takes seconds for each.
if(FDMORPH_SANITIZE)
  find_program(LLD_LINKER ld.lld)
  if(LLD_LINKER)
    add_link_options(-fuse-ld=lld)
  endif()
endif()
