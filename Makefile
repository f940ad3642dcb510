# The two commands of a newcomer: `make demo` and `make test`. Both install what is missing first.
SHELL := /bin/bash
FILE ?= examples/jsonpad/sample.json
JOBS ?= $(shell nproc)
export CTEST_PARALLEL_LEVEL ?= $(JOBS)
# Waits for a minute and needs hardly any processor time, so it runs beside the others.
MINUTE_LONG := tests/browser/outage.test.mjs

SPACE := $(subst ,, )

.PHONY: demo serve-demo build-demo test test-page stories test-ci test-memory test-threads build-ci build-asan build-tsan bench soak soak-proxy fuzz setup setup-test client checks tidy format clean

demo: BUILT := jsonpad dova-host
demo: build-demo
	@exec build/release/bin/jsonpad $(FILE)

# The same program for two visitors, each with one of their own.
serve-demo: BUILT := gallery dova-serve
serve-demo: build-demo
	@exec build/release/bin/dova-serve --visitor alice --visitor bob build/release/bin/gallery

build-demo: setup client
	@echo "Building; the first time this takes some minutes." >&2
	@cmake --preset release >build/configure.log || { cat build/configure.log; exit 1; }
	@cmake --build --preset release -j $(JOBS) --target $(BUILT) dova2_web >build/demo.log || { cat build/demo.log; exit 1; }

# Two chains side by side: the page and its stories, which mostly wait for a browser, and the
# programs, whose builds give way.
test: setup-test client
	+@$(MAKE) --no-print-directory -j 2 test-page stories test-threads
	node tools/test-ratio.mjs

test-page: checks
	tools/tidy.sh changed $(JOBS)
	cd client && npm run typecheck && npm test && node scripts/test.mjs test/browser && npm run size
	node --test tests/wire/

stories: test-page build-ci
	export JSONPAD=build/ci/bin/jsonpad; \
	node --test $(MINUTE_LONG) & minute=$$!; \
	node --test $(filter-out $(MINUTE_LONG),$(wildcard tests/browser/*.test.mjs)) && \
	DOVA_PROXY=nginx node --test --test-name-pattern='Buttons: they are pushed' tests/browser/gallery.test.mjs; \
	result=$$?; wait $$minute && exit $$result

test-ci: build-ci
	node tools/check-exports.mjs build/ci/lib/libdova2_web.so
	tools/platform-names.py
	ctest --preset ci
	node bench/ratios.mjs --brief build/ci/bin

test-memory: test-ci build-asan
	ctest --preset asan

THREADS := wiro_test messaging_test toolkit_test gateway_test
test-threads: test-memory build-tsan
	ctest --preset tsan -L '^($(subst $(SPACE),|,$(THREADS)))$$'

# One after the other, so that each has all cores.
build-asan: build-ci
build-tsan: private TARGETS := $(THREADS)
build-tsan: build-asan
build-ci build-asan build-tsan: build-%:
	@echo "Building in build/$*; what it says stands in build/$*.log." >&2
	@mkdir -p build
	@{ cmake --preset $* && nice cmake --build --preset $* -j $(JOBS) $(if $(TARGETS),--target $(TARGETS)); } \
	  >build/$*.log 2>&1 || { tail -n 60 build/$*.log; exit 1; }

bench: setup-test client
	cmake --preset bench && cmake --build --preset bench -j $(JOBS)
	node bench/ratios.mjs build/bench/bin
	node bench/browser/run.mjs build/bench/bin

# 50,000 numbered actions under 150 faults that SEED decides: five minutes for each way to serve, hardly any processor time.
soak: setup client
	cmake --preset release && cmake --build --preset release -j $(JOBS) --target dova-load dova-load-target dova-serve
	tools/load/soak.sh build/release/bin --seed $(or $(SEED),1)
	tools/load/soak-serve.sh build/release/bin --seed $(or $(SEED),1)

# Every story behind nginx: TLS, and the page below a path.
soak-proxy: setup-test client build-ci
	JSONPAD=build/ci/bin/jsonpad DOVA_PROXY=nginx node --test tests/browser/

fuzz: setup-test
	cmake --preset fuzz && cmake --build --preset fuzz -j $(JOBS)
	tools/fuzz.sh build/fuzz/bin $(if $(RUNS),-runs=$(RUNS),-max_total_time=$(or $(SECONDS_EACH),60))

# The rules between the rooms, what is made from the protocol's table, one form for each language.
CPP_FILES = $(shell git ls-files '*.cpp' '*.h')
SHELL_FILES = $(shell git ls-files '*.sh') .ci/run
BIOME := client/node_modules/.bin/biome

checks: client/node_modules/.package-lock.json
	node tools/check-rooms.mjs
	node protocol/generate.mjs --check
	@clang-format-16 --dry-run --Werror $(CPP_FILES)
	$(BIOME) check --colors=off --max-diagnostics=40 .
	shellcheck $(SHELL_FILES)
	shfmt -d $(SHELL_FILES)

# What clang-tidy finds in every source: half an hour. `make test` looks at changed ones.
tidy: setup-test
	tools/tidy.sh all $(JOBS)

# Gives every file the form that `make checks` asks for.
format: client/node_modules/.package-lock.json
	node protocol/generate.mjs
	@clang-format-16 -i $(CPP_FILES)
	$(BIOME) check --colors=off --write .
	shfmt -w $(SHELL_FILES)

setup:
	@tools/setup.sh build

setup-test:
	@tools/setup.sh build test

client: client/node_modules/.package-lock.json
	@cd client && npm run --silent build

client/node_modules/.package-lock.json: client/package-lock.json
	@cd client && npm ci --loglevel=error --no-audit --no-fund
	@touch $@

clean:
	rm -rf build client/dist client/node_modules
