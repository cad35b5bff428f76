# Front end for the CMake build: `make demo` and `make test` install what is
# missing, build into build/ and run.
BUILD_DIR ?= build
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_ARGS ?=
# Display language of the demo's head unit: en, de, fr or cs (empty: the
# locale's). `make demo DEMO_LANG=de`.
DEMO_LANG ?=

.PHONY: all deps configure build test demo asan clean

all: build

deps:
	@./cmake/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD_DIR) $(CMAKE_ARGS)

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

test: build
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

demo: build
	./tools/demo.sh $(BUILD_DIR) $(if $(DEMO_LANG),--lang $(DEMO_LANG))

# The whole suite under AddressSanitizer and UBSan, in build-asan/. Leak
# detection is off: Qt's offscreen platform keeps a screen object alive
# past exit.
asan:
	ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	$(MAKE) test BUILD_DIR=build-asan CMAKE_ARGS="-DRADIO_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug"

clean:
	rm -rf $(BUILD_DIR)
