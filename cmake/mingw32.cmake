# The same for 32 bits, under a Wine that runs both. It is shared by all builds of this tree.
set(machine i686)
set(emulator ${CMAKE_CURRENT_LIST_DIR}/wine32.sh ${CMAKE_CURRENT_LIST_DIR}/../build/wine32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
