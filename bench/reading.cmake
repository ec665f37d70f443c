kronalys_bench(bench_reading LINK load_core)
