# Runs fdrec plain. The variables are those of fdrec_plain_copybook.
include(${CMAKE_CURRENT_LIST_DIR}/run-fdmorph.cmake)

cmake_path(GET OUTPUT PARENT_PATH folder)
file(MAKE_DIRECTORY ${folder})
run_fdrec(ignored plain ${arg_COPYBOOK} -o ${OUTPUT} --depfile ${WORK}/depfile ${arg_OPTIONS})
