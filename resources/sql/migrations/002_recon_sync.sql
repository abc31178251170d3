-- Reconciliations travel between devices too: they get the sync columns of the other tables.
ALTER TABLE reconciliations ADD COLUMN version INTEGER NOT NULL DEFAULT 1;
ALTER TABLE reconciliations ADD COLUMN sync_status TEXT NOT NULL DEFAULT 'pending';
ALTER TABLE reconciliations ADD COLUMN server_id TEXT;
ALTER TABLE reconciliations ADD COLUMN created_at TEXT NOT NULL DEFAULT '';
ALTER TABLE reconciliations ADD COLUMN updated_at TEXT NOT NULL DEFAULT '';
ALTER TABLE reconciliations ADD COLUMN deleted_at TEXT;

-- Existing reconciliations were made when they were completed.
UPDATE reconciliations SET created_at = completed_at, updated_at = completed_at
WHERE created_at = '';
