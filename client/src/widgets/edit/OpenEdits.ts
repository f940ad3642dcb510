import { isObject } from '../../protocol/guards.ts';
import { EditText, type StoredEditText } from '../../store/EditText.ts';

/** The edits that were typed in, by identifier: most never are, so state is made on first use. */
export class EditTexts {
    private readonly m_edits = new Map<number, EditText>();

    find(id: number): EditText | undefined {
        return this.m_edits.get(id);
    }

    of(id: number): EditText {
        const edit = this.m_edits.get(id) ?? new EditText();
        this.m_edits.set(id, edit);
        return edit;
    }

    forget(id: number): void {
        this.m_edits.delete(id);
    }

    store(): Record<string, StoredEditText> {
        return Object.fromEntries([...this.m_edits].map(([id, edit]) => [id, edit.store()]));
    }

    restore(stored: unknown): void {
        for (const [id, edit] of Object.entries(isObject(stored) ? stored : {})) {
            this.m_edits.set(Number(id), EditText.restore(edit));
        }
    }
}
