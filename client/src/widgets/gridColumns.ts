/**
 * Two numbers of a "layoutGrid" are rows and columns, one alone is the columns. Only the columns
 * matter: rows come as they are needed. Undefined when there are none of use.
 */
export function gridColumns(grid: readonly number[] = []): number | undefined {
    const columns = grid[1] ?? grid[0] ?? 0;
    return columns >= 1 && columns <= 100 ? columns : undefined;
}
