# Thin fronts over CMake presets and scripts; each sets up what it lacks (scripts/setup).

.PHONY: all windows release packages install demo test lint mutants fuzz bench format clean

all:
	@scripts/setup build
	@cmake --preset native >/dev/null
	@cmake --build build/native --target vexlor32 vexlor vexlor32_link

windows:
	@scripts/setup build windows
	@cmake --preset win32 >/dev/null
	@cmake --preset win64 >/dev/null
	@cmake --build build/win32 --target vexlor32 import_library
	@cmake --build build/win64 --target vexlor32 import_library

# What is given away, in dist/; TWICE=1 builds it once more elsewhere and compares.
release:
	@scripts/setup packages
	@scripts/release $(if $(TWICE),--twice)

# The same, and the packages made of it; each is installed in an empty place and tried.
packages:
	@scripts/setup test packages
	@scripts/release $(if $(TWICE),--twice)
	@scripts/packages $(if $(TWICE),--twice)

# Library, header, vexlor with its manual page and completions, pkg-config file and CMake package.
PREFIX ?= /usr/local
install: all
	@cmake --build build/native --target shell_files
	@cmake --install build/native --prefix '$(PREFIX)'
	@if [ "$$(id -u)" = 0 ] && [ -z "$(DESTDIR)" ]; then ldconfig; fi

demo:
	@scripts/setup build
	@cmake --preset native >/dev/null
	@cmake --build build/native --target vexlor32 vexlor vexlor_demo
	@examples/demo build/native

test:
	@scripts/setup test
	@scripts/test

# clang-tidy over the library and its hosts; the quick rules for sources are tests.
lint:
	@scripts/setup lint
	@cmake --preset native >/dev/null
	@cmake --build build/native --target table
	@scripts/lint

# Which changes of the library would the tests not notice? For instance AREA="files dbf" COUNT=40; all areas without AREA.
COUNT ?= 20
mutants:
	@scripts/setup test
	@scripts/mutants $(addprefix --area ,$(AREA)) --count $(COUNT)

# The platform of Linux and the random caller under sanitizers, the latter for SECONDS (0: until it is interrupted).
SECONDS ?= 600
fuzz:
	@scripts/setup test
	@cmake --preset asan >/dev/null
	@cmake --build build/asan --target vexlor_linux_platform vexlor_random_caller
	@build/asan/vexlor_linux_platform --seconds $$(($(SECONDS) / 10)) --seed $$(date +%s)
	@build/asan/vexlor_random_caller --seconds $(SECONDS) --seed $$(date +%s)

# The library beside what one would use instead. FILTER picks cases, for instance FILTER=Trim.
FILTER ?= .
bench:
	@scripts/setup bench
	@cmake --preset native >/dev/null
	@cmake --build build/native --target vexlor_bench
	@scripts/bench '$(FILTER)'

format:
	@git ls-files '*.cpp' '*.h' | grep -v '^include/' | xargs clang-format -i

clean:
	rm -rf build dist
