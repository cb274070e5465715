# Two commands lead: `make demo` runs the main job, `make test` passes the tests.
# Both install the Debian packages they need when they are missing.

BUILD      ?= build
ASAN_BUILD ?= build-asan
JOBS       ?= $(shell nproc)
DEB_PACKAGES = cmake make g++ libgtest-dev libgmock-dev libbenchmark-dev \
               libcli11-dev libboost-dev python3-ezdxf gdal-bin

.PHONY: all deps configure build test demo sanitize bench clean

all: build

deps:
	@missing=""; for p in $(DEB_PACKAGES); do \
	  dpkg -s $$p >/dev/null 2>&1 || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  if [ "$$(id -u)" = 0 ]; then SUDO=""; else SUDO="sudo"; fi; \
	  $$SUDO apt-get update -qq && \
	  DEBIAN_FRONTEND=noninteractive $$SUDO apt-get install -y -qq $$missing; \
	fi

# Benchmarks are configured only by `make bench`; demo and test leave them out.
configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release -DVORN_BENCH=OFF

# Everything but the benchmarks: the executable and the test programs.
build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# The demo needs the executable alone.
demo: configure
	cmake --build $(BUILD) -j $(JOBS) --target vornmark
	bash examples/demo.sh $(BUILD)/app/vornmark

sanitize: deps
	cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DVORN_SANITIZE=ON -DVORN_BENCH=OFF
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release -DVORN_BENCH=ON
	cmake --build $(BUILD) -j $(JOBS)
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

clean:
	rm -rf $(BUILD) $(ASAN_BUILD)
