# Tallymere: `make run` to build and start the program, `make test` to build and run every test.
# Both install what is missing first (Debian 12; as root, or they tell you what to install).

BUILD_DIR   := build
ASAN_DIR    := build-asan
RELEASE_DIR := build-release
JOBS        ?= 2
GENERATOR   := -G Ninja

# CI builds with warnings as errors; a developer's build only shows them.
ifneq ($(filter-out 0 false no,$(strip $(CI))),)
WERROR := ON
else
WERROR := OFF
endif

# Qt needs no display to run the tests.
TEST_ENV := QT_QPA_PLATFORM=offscreen
SANITIZER_ENV := ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1 \
                 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

.PHONY: all deps configure build run test test-asan bench format clean

all: build

deps:
	@bash scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD_DIR) $(GENERATOR) -DTALLYMERE_WERROR=$(WERROR)

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

run: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	    echo "Tallymere is built, but there is no display to show it on (neither DISPLAY nor WAYLAND_DISPLAY is set)."; \
	    echo "Start it on a desktop session, or inside a virtual one with:"; \
	    echo "    xvfb-run -a $(BUILD_DIR)/bin/tallymere"; \
	    exit 1; \
	fi
	$(BUILD_DIR)/bin/tallymere

test: build
	cd $(BUILD_DIR) && $(TEST_ENV) ctest --output-on-failure -j $(JOBS)
	$(MAKE) --no-print-directory test-asan

# The core and its tests again, under AddressSanitizer and UndefinedBehaviorSanitizer.
test-asan: deps
	cmake -S . -B $(ASAN_DIR) $(GENERATOR) -DCMAKE_BUILD_TYPE=Debug -DTALLYMERE_SANITIZE=ON \
	    -DTALLYMERE_BUILD_APP=OFF -DTALLYMERE_WERROR=$(WERROR)
	cmake --build $(ASAN_DIR) -j $(JOBS)
	cd $(ASAN_DIR) && $(SANITIZER_ENV) ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(RELEASE_DIR) $(GENERATOR) -DCMAKE_BUILD_TYPE=Release -DTALLYMERE_BUILD_APP=OFF
	cmake --build $(RELEASE_DIR) -j $(JOBS) --target run_benchmarks

format: deps
	find src tests bench tools \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format -i

clean:
	rm -rf $(BUILD_DIR) $(ASAN_DIR) $(RELEASE_DIR)
