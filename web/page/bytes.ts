// Texts and files in bytes, as the program counts and takes them.

export interface Mark { first: number; length: number }

// A place in the text counts units of UTF-16, one in its bytes those of UTF-8.
export const bytesBefore = (text: string, place: number): number => new TextEncoder().encode(text.slice(0, place)).length;
export const placeOfByte = (text: string, bytes: number): number => new TextDecoder().decode(new TextEncoder().encode(text).subarray(0, bytes)).length;

export function markOf({ value, selectionStart, selectionEnd }: HTMLInputElement | HTMLTextAreaElement): Mark {
  const first = bytesBefore(value, selectionStart ?? 0);
  return { first, length: bytesBefore(value, selectionEnd ?? 0) - first };
}

export function setMark(line: HTMLInputElement, { first, length }: Mark): void {
  line.setSelectionRange(placeOfByte(line.value, first), placeOfByte(line.value, first + length));
}

// A file goes to and from the program as an address, which the one who gets it reads once.
export const lend = (bytes: BlobPart): string => URL.createObjectURL(new Blob([bytes]));

export async function borrow(address: string): Promise<Uint8Array> {
  const answer = await fetch(address);
  URL.revokeObjectURL(address);
  return new Uint8Array(await answer.arrayBuffer());
}
