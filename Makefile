# Front end for the CMake build: `make demo` and `make test` install what is
# missing, build into build/ and run.
#
# QT=5 (default) or QT=6 picks the Qt major. Every folder a target builds
# into takes the suffix -qt6 for Qt 6 (build-qt6/, build-asan-qt6/, ...),
# so no folder holds both majors.
QT ?= 5
ifeq ($(QT),6)
QT_SUFFIX := -qt6
else ifneq ($(QT),5)
$(error QT must be 5 or 6, not "$(QT)")
endif
export RADIO_QT_MAJOR := $(QT)
BUILD_DIR ?= build$(QT_SUFFIX)
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_ARGS ?=
# Display language of the demo's head unit: en, de, fr or cs (empty: the
# locale's). `make demo DEMO_LANG=de`.
DEMO_LANG ?=
CROSS_DIR ?= build-aarch64$(QT_SUFFIX)
FUZZ_DIR ?= build-fuzz$(QT_SUFFIX)
TSAN_DIR ?= build-tsan$(QT_SUFFIX)
# Seconds each fuzz target runs in `make fuzz`.
FUZZ_SECONDS ?= 60
CCACHE := $(shell command -v ccache 2>/dev/null)

.PHONY: all deps configure build test demo asan fuzz tsan package clean \
	cross-deps cross-configure cross test-aarch64 cross-package

all: build

deps:
	@./cmake/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD_DIR) -DRADIO_QT_MAJOR=$(QT) $(CMAKE_ARGS)

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

# The capture tests decode with tshark.
test: build
	@./cmake/install-deps.sh tshark
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

demo: build
	./tools/demo.sh $(BUILD_DIR) $(if $(DEMO_LANG),--lang $(DEMO_LANG))

# The whole suite under AddressSanitizer and UBSan, in build-asan/. Leak
# detection is off: Qt's offscreen platform keeps a screen object alive
# past exit.
asan:
	ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	$(MAKE) test BUILD_DIR=build-asan$(QT_SUFFIX) CMAKE_ARGS="-DRADIO_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug"

# Every fuzz target under libFuzzer with AddressSanitizer and UBSan, the
# project's libraries instrumented for coverage, in build-fuzz/. Not part
# of `make test`.
fuzz: deps
	@./cmake/install-deps.sh clang libclang-rt-14-dev
	cmake -S . -B $(FUZZ_DIR) -DRADIO_QT_MAJOR=$(QT) -DCMAKE_CXX_COMPILER=clang++ \
		-DRADIO_LIBFUZZER=ON -DRADIO_SANITIZE=ON $(CMAKE_ARGS)
	cmake --build $(FUZZ_DIR) -j $(JOBS) --target fuzz_targets
	./tools/fuzz.sh $(FUZZ_DIR) $(FUZZ_SECONDS)

# The whole suite under ThreadSanitizer, in build-tsan/; any report fails
# it. Not part of `make test`.
tsan: deps
	cmake -S . -B $(TSAN_DIR) -DRADIO_QT_MAJOR=$(QT) -DRADIO_TSAN=ON $(CMAKE_ARGS)
	cmake --build $(TSAN_DIR) -j $(JOBS)
	./tools/tsan.sh $(TSAN_DIR) $(JOBS)

# Debian packages of this machine's architecture, in $(BUILD_DIR)/.
package: build
	cd $(BUILD_DIR) && cpack -G DEB

# The board build: AArch64 with Debian's cross compiler and arm64 Qt, in
# build-aarch64/ (build-aarch64-qt6/). Not part of `make test`.
cross-deps:
	@./cmake/install-cross-deps.sh

cross-configure: cross-deps
	cmake -S . -B $(CROSS_DIR) -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-aarch64.cmake -DRADIO_QT_MAJOR=$(QT) \
		$(if $(CCACHE),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache) $(CMAKE_ARGS)

cross: cross-configure
	cmake --build $(CROSS_DIR) -j $(JOBS)

# The cross-built suite and the head-unit tour under user-mode emulation.
test-aarch64: cross
	./tools/test-aarch64.sh $(CROSS_DIR)

cross-package: cross
	cd $(CROSS_DIR) && cpack -G DEB

clean:
	rm -rf $(BUILD_DIR)
