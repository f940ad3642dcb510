/** Carries out a story: each step is a method of the actor, with its values. */
export async function play(actor, steps) {
    for (const [verb, ...values] of steps) {
        try {
            await actor[verb](...values);
        } catch (error) {
            error.message = `${JSON.stringify([verb, ...values])}: ${error.message}`;
            throw error;
        }
    }
}
