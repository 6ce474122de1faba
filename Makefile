# Quick start: `make demo` and `make test`. Each target installs what is
# missing first (scripts/setup.sh), then configures and builds as needed.

BUILD       ?= build
ASAN_BUILD  ?= build-asan
BUILD_TYPE  ?= RelWithDebInfo
JOBS        ?= $(shell nproc 2>/dev/null || echo 2)
PREFIX      ?= /usr/local
CMAKE_FLAGS ?=

.PHONY: all setup configure build demo test test-plain test-asan bench fuzz install clean

all: build

setup:
	@bash scripts/setup.sh

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) -DCMAKE_INSTALL_PREFIX=$(PREFIX) $(CMAKE_FLAGS)

$(ASAN_BUILD)/build.ninja:
	cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKROLLE_SANITIZE=ON -DKROLLE_BUILD_BENCH=OFF $(CMAKE_FLAGS)

configure: setup $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

demo: build
	@echo "== krolle demo =="
	@$(BUILD)/tools/krolle demo
	@echo "== printed demo board: 40 sample drawings, their board, its pages =="
	@$(BUILD)/tools/krolle sketches $(BUILD)/demo-board/drawings --count 40 >/dev/null
	@$(BUILD)/tools/krolle import-images $(BUILD)/demo-board/drawings --out $(BUILD)/demo-board/board.xml --group shot --force
	@$(BUILD)/tools/krolle pdf $(BUILD)/demo-board/board.xml --out $(BUILD)/demo-board/board.pdf --landscape
	@echo "printed demo board: $(abspath $(BUILD)/demo-board/board.pdf)"

test: setup test-plain test-asan

test-plain: configure
	cmake --build $(BUILD) -j $(JOBS)
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# Sanitizer run: any report aborts the test that triggered it. The options
# hold for the build too, since listing the tests runs the test binaries.
SANITIZER_ENV = \
  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1:detect_stack_use_after_return=1 \
  LSAN_OPTIONS=suppressions=$(CURDIR)/scripts/lsan.supp:print_suppressions=0 \
  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

test-asan: setup $(ASAN_BUILD)/build.ninja
	$(SANITIZER_ENV) cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && $(SANITIZER_ENV) ctest --output-on-failure -j $(JOBS)

bench: configure
	cmake --build $(BUILD) -j $(JOBS) --target krolle_bench
	$(BUILD)/bench/krolle_bench

# libFuzzer runs (clang): each target FUZZ_SECONDS (60) seconds, in build-fuzz.
fuzz:
	@bash scripts/fuzz.sh

install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) build-fuzz
