import { asId } from '../../protocol/guards.ts';

/** The fields that were typed in since the last end of an edit, and those of an input method. */
export class OpenEdits {
    readonly #open = new Set<number>();
    /** What the field held when the text began that is still being composed. */
    readonly #composing = new Map<number, string>();

    isOpen(id: number): boolean {
        return this.#open.has(id);
    }

    isComposing(id: number): boolean {
        return this.#composing.has(id);
    }

    open(id: number): void {
        this.#open.add(id);
    }

    /** The edit came to its end, or there is no such field any more. */
    close(id: number): void {
        this.#open.delete(id);
        this.#composing.delete(id);
    }

    beginComposition(id: number, text: string): void {
        this.#composing.set(id, text);
        this.open(id);
    }

    /** Answers what the field held before. */
    endComposition(id: number): string | undefined {
        const before = this.#composing.get(id);
        this.#composing.delete(id);
        return before;
    }

    store(): readonly number[] {
        return [...this.#open];
    }

    restore(stored: unknown): void {
        for (const id of Array.isArray(stored) ? stored.map(asId) : []) {
            if (id !== undefined) {
                this.open(id);
            }
        }
    }
}
