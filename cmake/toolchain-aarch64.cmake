# Cross build for the AArch64 board on a Debian build machine:
# Debian's aarch64-linux-gnu compiler and Debian's multiarch Qt 5 for arm64
# (qtbase5-dev:arm64), installed by cmake/install-cross-deps.sh.
#
# The arm64 Qt packages live beside the build machine's own under
# /usr/lib/aarch64-linux-gnu, and their CMake files point moc, uic and rcc
# at /usr/lib/qt5/bin, which holds the build machine's tools: generated code
# does not depend on the architecture, so nothing else is needed for them.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

set(RADIO_CROSS_TRIPLE aarch64-linux-gnu)
set(CMAKE_C_COMPILER ${RADIO_CROSS_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${RADIO_CROSS_TRIPLE}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${RADIO_CROSS_TRIPLE})

# Libraries, headers and CMake packages only from the arm64 side; programs
# (the Qt tools) from the build machine.
set(CMAKE_FIND_ROOT_PATH /usr/${RADIO_CROSS_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# ctest runs the cross-built programs under user-mode emulation, through a
# wrapper that makes QProcess work there. Multiarch puts the arm64 loader and
# libraries at their usual places in the build machine's root, which is
# therefore the emulator's library root.
find_program(RADIO_QEMU_AARCH64 NAMES qemu-aarch64-static qemu-aarch64)
if(RADIO_QEMU_AARCH64)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/qemu-aarch64-run.sh ${CMAKE_BINARY_DIR})
endif()

# The catalogue tools (lupdate, lrelease) are build-machine programs like
# moc; their CMake package comes from the build machine's Qt.
execute_process(COMMAND dpkg-architecture -qDEB_BUILD_MULTIARCH
    OUTPUT_VARIABLE RADIO_BUILD_MULTIARCH OUTPUT_STRIP_TRAILING_WHITESPACE)
set(Qt5LinguistTools_DIR /usr/lib/${RADIO_BUILD_MULTIARCH}/cmake/Qt5LinguistTools CACHE PATH "")
set(Qt6LinguistTools_DIR /usr/lib/${RADIO_BUILD_MULTIARCH}/cmake/Qt6LinguistTools CACHE PATH "")
