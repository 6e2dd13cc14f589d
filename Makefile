# Quick start: `make demo` and `make test`. Both install missing Debian
# packages first (`make deps`), configure with a CMake preset, build, then run.
PRESET ?= release
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
BUILD_DIR := build/$(PRESET)

DEB_PACKAGES := cmake make g++ pkg-config ccache \
  libgtest-dev libgmock-dev libbenchmark-dev \
  libpugixml-dev libzip-dev libeigen3-dev libboost-dev libcli11-dev libqhull-dev \
  python3 python3-dev python3-pybind11 pybind11-dev python3-numpy python3-pytest
# libFuzzer and the sanitizer runtimes come with clang (the runtimes are a
# package of their own on Debian 12); only `make fuzz` needs them.
ifeq ($(PRESET),fuzz)
DEB_PACKAGES += clang libclang-rt-14-dev
endif

.PHONY: all deps configure build test demo bench bench-all fuzz fuzz-smoke format clean

all: build

deps:
	@missing=""; \
	for p in $(DEB_PACKAGES); do \
	  dpkg-query -W -f='$${Status}\n' $$p 2>/dev/null | grep -q '^install ok installed' || missing="$$missing $$p"; \
	done; \
	if [ -z "$$missing" ]; then exit 0; fi; \
	if [ "$$(id -u)" != "0" ]; then \
	  echo "make deps: these Debian packages are missing:$$missing"; \
	  echo "make deps: run as root:  apt-get update && apt-get install -y --no-install-recommends$$missing"; \
	  exit 1; \
	fi; \
	echo "make deps: installing$$missing"; \
	apt-get update && DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $$missing

configure: deps
	cmake --preset $(PRESET)

# After a release build, `python3 -c "import qvv7"` works for the user who
# built: a .pth file in /usr/bin/python3's user site names the module's
# folder, as an editable install would. `make clean` takes it away again.
PY_USER_SITE = $(shell /usr/bin/python3 -m site --user-site 2>/dev/null)
PY_PTH = $(PY_USER_SITE)/qvv7-build.pth

build: configure
	cmake --build --preset $(PRESET) -j $(JOBS)
	@if [ "$(PRESET)" = release ] && [ -n "$(PY_USER_SITE)" ] && ls $(BUILD_DIR)/python/qvv7*.so >/dev/null 2>&1; then \
	  { mkdir -p "$(PY_USER_SITE)" && echo "$(abspath $(BUILD_DIR)/python)" > "$(PY_PTH)"; } 2>/dev/null || \
	    echo "make: could not write $(PY_PTH); set PYTHONPATH=$(abspath $(BUILD_DIR)/python) to import qvv7"; \
	fi

test: build
	ctest --preset $(PRESET) --output-on-failure -j $(JOBS)

demo: build
	$(BUILD_DIR)/qvdoc demo --out $(BUILD_DIR)/demo

# The table of target ratios, from one run; `make bench-all` runs every
# benchmark program in full.
bench: build
	@python3 bench/ratios.py $(BUILD_DIR)/bench

bench-all: build
	@for b in $(BUILD_DIR)/bench/bench_*; do [ -x "$$b" ] && "$$b" --benchmark_counters_tabular=true; done

fuzz:
	$(MAKE) PRESET=fuzz build

# Every fuzz target for a short time (FUZZ_SECONDS each).
FUZZ_SECONDS ?= 20
fuzz-smoke: fuzz
	fuzz/smoke.sh $(FUZZ_SECONDS)

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	@if [ -n "$(PY_USER_SITE)" ] && grep -qsx "$(abspath build/release/python)" "$(PY_PTH)"; then rm -f "$(PY_PTH)"; fi
	rm -rf build
