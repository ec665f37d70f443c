kronalys_bench(bench_stats LINK stats)
